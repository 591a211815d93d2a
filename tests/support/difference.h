#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace foliant::tests {

using Lines = std::vector<std::string>;

/// The lines of a text without the blanks that they begin with, and without empty ones at both ends: so an
/// expected journal can be indented like the code that it stands in.
Lines lines_of(std::string_view text);

/// All lines of both, in order: "- " before one that only `expected` has, "+ " before one that only `actual`
/// has, two blanks before the others.
Lines difference(const Lines& expected, const Lines& actual);

/// Lines joined to a text, each ended by a line feed.
std::string text_of(const Lines& lines);

}  // namespace foliant::tests
