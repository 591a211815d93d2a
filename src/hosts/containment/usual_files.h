#pragma once

#include <filesystem>
#include <vector>

/// What the engines' libraries read on any system, for policies to name. None of it is anybody's document.
namespace foliant::hosts::containment {

using Paths = std::vector<std::filesystem::path>;

/// Shared libraries and what finds them.
Paths system_libraries();

/// Fonts of the system and of the user, the folders that fontconfig's own configuration names, and what
/// fontconfig wants to know of them.
Paths fonts();

/// The folders that a file of fontconfig's names as those of fonts (`<dir>`); none when there is no such
/// file. One that holds the user's whole home is left out: more lies there than fonts.
Paths font_folders_in(const std::filesystem::path& configuration);

/// Locales, time zones, and character conversions.
Paths locales();

/// What time it is here.
Paths time_zones();

/// Devices without content: /dev/null, /dev/zero, /dev/urandom.
Paths empty_devices();

/// Joins lists, so that a policy can be written in one expression.
Paths operator+(Paths left, Paths right);

}  // namespace foliant::hosts::containment
