#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "core/build_pdf.h"
#include "core/member.h"
#include "platform/stage/stage.h"
#include "support/difference.h"

namespace foliant::tests {

/// One call, on a usual machine that may have been changed for it, whose outside actions are made to fail one
/// after the other.
struct FaultScene {
    std::string name;                      ///< letters and digits, as in a test's name
    const core::Member* member = nullptr;  ///< the row of the table that it calls, nullptr for a service
    std::function<void(platform::stage::Stage&)> arrange;
    std::function<void(core::BuildPDF&)> call;
    std::string expected;  ///< what `fault_report` says about it; a reader can check it line by line
};

void PrintTo(const FaultScene& scene, std::ostream* out);

/// A scene that calls a member by its name.
FaultScene scene_of_member(std::string name, std::string_view member, automation::Access access,
                           automation::Arguments arguments,
                           std::function<void(platform::stage::Stage&)> arrange, std::string expected);
FaultScene scene_of_member(std::string name, std::string_view member, automation::Arguments arguments,
                           std::function<void(platform::stage::Stage&)> arrange, std::string expected);

/// A scene of steps that several members share; they run inside an error trap, as they do in a member.
FaultScene scene_of_service(std::string name, std::function<void(const session::Session&)> steps,
                            std::function<void(platform::stage::Stage&)> arrange, std::string expected);

/// Calls the scene once for each of its outside actions, which then fails, and says what came of it. Actions
/// one after the other that lead to the same end stand together:
///
///     fails: Distiller.bShowWindow = False
///     fails: Distiller.bSpoolJobs = False
///         stop listening to Distiller
///         release Distiller
///         raise the failure
///
/// Where the call goes on and succeeds, the end is `go on`, or `go on, but` and what it did more (+) or less
/// (-) than a call without a failure. Lines of the report are not indented.
///
/// Expects of every call, with a failure or without, that it leaves no object alive and `objAdobeDistiller`
/// empty.
Lines fault_report(const FaultScene& scene);

/// Calls the scene once for each of its outside actions, which then fails, and everything after it fails as
/// well, with another error. Expects that what was raised before is raised again, after the same clean-up.
void expect_failing_clean_up_to_hide_nothing(const FaultScene& scene);

}  // namespace foliant::tests
