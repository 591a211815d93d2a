#pragma once

#include <string>
#include <string_view>

#include "automation/error.h"

namespace foliant::hosts::autocad {

inline constexpr std::string_view application_name = "AutoCAD";

// By AutoCAD's own numbers.
inline constexpr std::int32_t general_failure = -2145320861;
inline constexpr std::int32_t key_not_found = -2145386476;
inline constexpr std::int32_t not_running = 462;

inline automation::Error autocad_error(std::int32_t number, std::string description) {
    return {number, std::string(application_name), std::move(description)};
}

}  // namespace foliant::hosts::autocad
