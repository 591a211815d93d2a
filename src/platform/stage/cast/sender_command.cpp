#include "platform/stage/cast/sender_command.h"

namespace foliant::platform::stage {

std::optional<std::string> typed_into(std::string_view dialog, const std::string& command_line) {
    const std::string command = " " + std::string(dialog) + "~Edit~";
    const std::size_t begin = command_line.find(command);
    if (begin == std::string::npos) return std::nullopt;
    const std::string text = command_line.substr(begin + command.size());
    return text.substr(0, text.find('~'));
}

}  // namespace foliant::platform::stage
