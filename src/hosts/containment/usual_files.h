#pragma once

#include <filesystem>
#include <vector>

/// What the engines' libraries read on any system, for policies to name. None of it is anybody's document.
namespace foliant::hosts::containment {

using Paths = std::vector<std::filesystem::path>;

/// Shared libraries and what finds them.
Paths system_libraries();

/// Fonts of the system and of the user, and what fontconfig wants to know of them.
Paths fonts();

/// Locales, time zones, and character conversions.
Paths locales();

/// Devices without content: /dev/null, /dev/zero, /dev/urandom.
Paths empty_devices();

/// Joins lists, so that a policy can be written in one expression.
Paths operator+(Paths left, const Paths& right);

}  // namespace foliant::hosts::containment
