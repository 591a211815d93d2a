#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace foliant::hosts::acrobat::text {

/// A letter of a line as it is seen, or a blank between words.
struct Glyph {
    char32_t letter = 0;
    std::uint32_t word = 0;      ///< which of the line's words it belongs to
    std::uint32_t position = 0;  ///< in that word
};

/// Puts the letters of a line, which come from left to right, into the order in which they are read: parts of
/// it that are written from right to left are turned round, numbers in them are not, and brackets become what
/// they are where the file says what they look like. `mostly_to_the_left` says that the page is written from right
/// to left, and parts to the right are the exception; a line without any is read to the left on every page.
void put_in_reading_order(std::vector<Glyph>& line, bool mostly_to_the_left);

}  // namespace foliant::hosts::acrobat::text
