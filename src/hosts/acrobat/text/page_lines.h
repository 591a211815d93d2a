#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::text {

/// Letters between blanks.
struct Token {
    std::u32string text;                ///< ligatures taken apart
    std::vector<std::uint32_t> origin;  ///< of each character: the letter of the page that it comes from
};

/// A line of a page.
struct Line {
    std::vector<Token> tokens;  ///< at least one
    bool is_full = false;       ///< ends where the lines above and below it end at most
};

/// The lines of a page as tokens, in reading order.
std::vector<Line> lines_of(const PageText& page);

}  // namespace foliant::hosts::acrobat::text
