#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "automation/value.h"
#include "core/build_pdf.h"
#include "core/member.h"
#include "platform/stage/stage.h"

namespace foliant::tests {

/// What makes a usual machine (see platform/stage/cast/cast.h) the one that a test needs; may be empty.
using Arrange = std::function<void(platform::stage::Stage&)>;

/// One call of a member of the class, by its name as a client makes it, on a machine of its own.
struct MemberCall {
    std::string_view member;
    std::string_view of{};  ///< what tells it from other calls of the member in a test's name: "WithSecurity"
    automation::Access access = automation::Access::call;
    Arrange arrange{};
    automation::Arguments arguments{};

    /// The row of the table that it calls, nullptr when there is none.
    const core::Member* row() const;
    /// Its name as part of a test's name.
    std::string name() const { return std::string(member) + std::string(of); }
    /// Makes the call, which writes to `given`.
    automation::Value make(core::BuildPDF& object, automation::Arguments& given) const;
};

}  // namespace foliant::tests
