#include "engines/host_program.h"

#include "session/errors.h"

namespace foliant::engines {

using automation::Arguments;
using automation::Value;

bool is_held(const Value& object) noexcept {
    const auto* held = object.if_holds<automation::ObjectPtr>();
    return held != nullptr && *held != nullptr;
}

void end_with(Value& object, std::string_view member, const Arguments& arguments) {
    object.call(member, arguments);
    object = {};
}

void end_with_if_held(Value& object, std::string_view member, const Arguments& arguments) noexcept {
    if (is_held(object)) session::ignoring_errors([&] { object.call(member, arguments); });
    object = {};
}

void HostProgram::close_and_quit(const Arguments& closing) {
    end_with(document, "Close", closing);
    end_with(application, "Quit");
}

void HostProgram::let_go(const Arguments& closing) noexcept {
    end_with_if_held(document, "Close", closing);
    end_with_if_held(application, "Quit");
}

}  // namespace foliant::engines
