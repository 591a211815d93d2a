#include "platform/local/system_error.h"

#include <system_error>

namespace foliant::platform::local {

automation::Error system_error(automation::RuntimeError number, std::string_view action,
                               const std::string& path, int code) {
    std::string text(automation::usual_description(number));
    text += ": cannot ";
    text += action;
    text += ' ';
    text += path.empty() ? "a file without a name" : path;
    text += " (" + std::generic_category().message(code) + ").";
    return {number, std::move(text)};
}

}  // namespace foliant::platform::local
