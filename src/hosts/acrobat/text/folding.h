#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::text {

enum class Case : std::uint8_t { ignored, kept };

/// Signs in folded text that stand for something which is there or not, as whoever searches likes.
inline constexpr char32_t optional_hyphen = 0xFDD0;  ///< at the end of a line; Unicode has no such character
inline constexpr char32_t optional_blank = 0xFDD1;   ///< a line end where none need be

/// Text as it is compared: ligatures and accented letters taken apart, kinds of quotation marks and hyphens
/// made one, soft hyphens and what else is invisible left out, letters made small unless case is kept, blanks
/// and line ends a single blank.
struct Folded {
    std::u32string text;
    std::vector<std::uint32_t> origin;  ///< of each character: the index of the letter that it comes from
};

/// The text of a page, with a blank at both ends.
Folded fold(const PageText& page, Case letter_case);

/// A text to search for, as UTF-8.
std::u32string fold(std::string_view text, Case letter_case);

}  // namespace foliant::hosts::acrobat::text
