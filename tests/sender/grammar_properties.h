#pragma once

#include <string>
#include <string_view>

#include "sender/command.h"

namespace foliant::sender::test {

/// A command as it is written.
inline std::string written(const Command& command) {
    return command.caption + "~" + std::string(class_name(command.control)) + "~" + command.text + "~0~" +
           (command.stay_until_closed ? "1" : "0") + "~";
}

/// What holds for every input: it is refused with a CommandError, or it reads as a command that, written
/// again, reads as the same one. Also finds the tail of the input taken as a command line.
inline bool grammar_holds(std::string_view input) {
    const std::string_view tail = command_tail(input);
    if (!tail.empty() &&
        (tail.data() < input.data() || tail.data() + tail.size() != input.data() + input.size()))
        return false;
    try {
        const Command command = parse(input);
        return parse(written(command)) == command;
    } catch (const CommandError&) {
        return true;
    }
}

}  // namespace foliant::sender::test
