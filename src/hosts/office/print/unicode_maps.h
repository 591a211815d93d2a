#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts::office {

/// What the characters of a font in a PDF document mean.
struct UnicodeMap {
    int object;                       ///< the number of the font's object in the document
    int generation;                   ///< and its generation
    std::map<int, std::string> text;  ///< character code to its text, in UTF-16BE as hexadecimal digits
};

/// The maps of all simple fonts in a PDF document (its bytes) that have one. Raises std::exception when the
/// document cannot be read.
std::vector<UnicodeMap> read_unicode_maps(std::string_view pdf);

}  // namespace foliant::hosts::office
