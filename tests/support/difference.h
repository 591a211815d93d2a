#pragma once

#include <source_location>
#include <string_view>

#include "support/lines.h"

namespace foliant::tests {

/// All lines of both, in order: "- " before one that only `expected` has, "+ " before one that only `actual`
/// has, two blanks before the others.
Lines difference(const Lines& expected, const Lines& actual);

/// The same without the lines that both have.
Lines changes(const Lines& expected, const Lines& actual);

/// Compares lines with the expected ones as a whole; a failure shows both in one, line by line, at the place
/// of the call.
void expect_lines(const Lines& actual, const Lines& expected,
                  std::source_location place = std::source_location::current());

/// The same with a text, indented as you like.
void expect_text(const Lines& actual, std::string_view expected,
                 std::source_location place = std::source_location::current());

}  // namespace foliant::tests
