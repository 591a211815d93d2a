#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "automation/error.h"

namespace foliant::hosts::transfer {

/// Whose errors they are.
inline constexpr const char* control_name = "Internet Transfer control";

/// The control's own numbers.
enum class InetError : std::int32_t {
    malformed_url = 35752,
    cannot_connect = 35754,
    no_remote_computer = 35755,
    cannot_complete = 35756,
    timed_out = 35761,
    still_executing = 35764,
    invalid_command = 35766,
};

/// The failure `number`; `description` says what failed, with which server or file, why, and what to do.
inline automation::Error inet_error(InetError number, std::string description) {
    return {static_cast<std::int32_t>(number), control_name, std::move(description)};
}

}  // namespace foliant::hosts::transfer
