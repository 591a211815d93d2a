#pragma once

#include <functional>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include "core/build_pdf.h"
#include "core/member.h"
#include "support/lines.h"
#include "support/member_call.h"

namespace foliant::tests {

/// Lines that end many failures alike, under a name that reads as one of them: "let Word go".
struct Ending {
    std::string_view name;
    std::string_view lines;  ///< indented as you like
};

/// What `fault_report` says about a scene, in a form that a reader can check line by line.
struct ExpectedFaults {
    std::vector<Ending> endings{};  ///< that the report may name
    std::string_view from{};        ///< the action with whose failure it begins; "" for the first
    std::string_view report{};
};

/// One call, on a usual machine that may have been changed for it, whose outside actions are made to fail one
/// after the other.
struct FaultScene {
    std::string name;                      ///< letters and digits, as in a test's name
    const core::Member* member = nullptr;  ///< the row of the table that it calls, nullptr for a service
    Arrange arrange{};
    std::function<void(core::BuildPDF&)> call;
};

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

/// Compares the report about a scene with what is expected.
void expect_faults(const FaultScene& scene, const ExpectedFaults& expected,
                   std::source_location place = std::source_location::current());

/// Calls the scene once for each of its outside actions, which then fails, and everything after it fails as
/// well, with another error. Expects that what was raised before is raised again, after the same clean-up.
void expect_failing_clean_up_to_hide_nothing(const FaultScene& scene);

}  // namespace foliant::tests
