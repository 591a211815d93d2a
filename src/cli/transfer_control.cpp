#include "cli/transfer_control.h"

#include "automation/coerce.h"
#include "cli/call.h"

namespace foliant::cli {

using automation::Access;
using automation::Value;

Value TransferControl::invoke(Access access, std::string_view member,
                              const automation::Arguments& arguments) {
    if (access == Access::call && member == "Execute") return execute(arguments);
    Value answer = control_.object().invoke(access, member, arguments);
    const bool is_asked = access == Access::get && member == "StillExecuting";
    if (is_asked && automation::to_bool(answer)) progress_(automation::to_int32(control_.get("PercentDone")));
    return answer;
}

Value TransferControl::execute(automation::Arguments arguments) {
    for (automation::Argument& argument : arguments) {
        const auto* text = argument.value.if_holds<std::string>();
        if (text != nullptr && *text == hosts::unquoted_text(meant_))
            argument.value = Value(hosts::unmistakable_text(meant_));
    }
    return control_.object().invoke(Access::call, "Execute", arguments);
}

std::optional<automation::Error> TransferControl::refusal() const {
    if (automation::to_int32(control_.get("ResponseCode")) == 0) return std::nullopt;
    return host_error(automation::to_text(control_.get("ResponseInfo")));
}

}  // namespace foliant::cli
