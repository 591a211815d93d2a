#pragma once

#include <source_location>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::tests {

using Lines = std::vector<std::string>;

/// The lines of a text without the blanks that they begin with, and without empty ones at both ends: so an
/// expected journal can be indented like the code that it stands in.
Lines lines_of(std::string_view text);

/// Lines joined to a text, each ended by a line feed.
std::string text_of(const Lines& lines);

// Slices of a journal, by what its lines say. Each fails the test, at the place of the call, when there is no
// such line.

/// The first line that contains that text, and all after it.
Lines lines_from(const Lines& lines, std::string_view text,
                 std::source_location place = std::source_location::current());

/// The first line that contains `first`, the first one after it that contains `last`, and all between them.
Lines lines_between(const Lines& lines, std::string_view first, std::string_view last,
                    std::source_location place = std::source_location::current());

/// All lines that contain one of those texts, in order.
Lines lines_with(const Lines& lines, const std::vector<std::string_view>& texts,
                 std::source_location place = std::source_location::current());

/// The only line that contains that text; "" when there are several, which fails the test too.
std::string line_with(const Lines& lines, std::string_view text,
                      std::source_location place = std::source_location::current());

}  // namespace foliant::tests
