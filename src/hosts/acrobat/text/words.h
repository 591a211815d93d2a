#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::text {

/// Words one behind the other, in UTF-8.
struct Words {
    std::string letters;
    std::vector<std::uint32_t> ends;  ///< of each word: where it ends in `letters`
};

/// The words of a page in reading order. A word brings along the blank behind it; the last one of a
/// line, CR LF. A word that was broken at the end of a line is whole, without its hyphen, and ends that line.
/// With a rectangle, only words whose middle lies in it.
Words words(const PageText& page, const Rectangle* within = nullptr);

/// Text as UTF-8; what is no character is U+FFFD.
std::string utf8(std::u32string_view text);

}  // namespace foliant::hosts::acrobat::text
