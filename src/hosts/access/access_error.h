#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "automation/error.h"

namespace foliant::hosts::access {

/// The program that this stands in for, as the source of its errors.
inline constexpr std::string_view application_name = "Microsoft Access";

// Its numbers.
inline constexpr std::int32_t report_not_found = 2103;
inline constexpr std::int32_t no_database_open = 2467;
inline constexpr std::int32_t action_cancelled = 2501;
inline constexpr std::int32_t database_not_found = 3024;
inline constexpr std::int32_t wrong_password = 3031;
inline constexpr std::int32_t criteria_not_understood = 3075;
inline constexpr std::int32_t not_a_database = 3343;
inline constexpr std::int32_t database_already_open = 7867;
inline constexpr std::int32_t not_running = 462;

/// A failure of Access's; `description` says what failed, on which file, why, and what to do.
inline automation::Error access_error(std::int32_t number, std::string description) {
    return {number, std::string(application_name), std::move(description)};
}
inline automation::Error access_error(automation::RuntimeError number, std::string description) {
    return access_error(static_cast<std::int32_t>(number), std::move(description));
}

}  // namespace foliant::hosts::access
