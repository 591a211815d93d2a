#include "support/member_call.h"

#include "core/dispatch.h"

namespace foliant::tests {

const core::Member* MemberCall::row() const {
    const auto dispid = core::find_dispid(member);
    return dispid ? core::find_member(*dispid, access) : nullptr;
}

automation::Value MemberCall::make(core::BuildPDF& object, automation::Arguments& given) const {
    return core::invoke(object, member, access, given);
}

}  // namespace foliant::tests
