#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "automation/error.h"

namespace foliant::tests {

/// The automation error that `action` raises; number 0 when it raises none.
inline automation::Error error_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::Error& error) {
        return error;
    }
    return {0, "", "nothing was raised"};
}

inline std::int32_t error_number(const std::function<void()>& action) {
    return error_of(action).number();
}

/// "53 File not found", without the source; "no failure" for none.
inline std::string failure(const std::function<void()>& action) {
    const automation::Error error = error_of(action);
    return error.number() == 0 ? "no failure" : std::to_string(error.number()) + " " + error.description();
}

}  // namespace foliant::tests
