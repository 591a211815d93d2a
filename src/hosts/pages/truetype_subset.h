#pragma once

#include <hb.h>
#include <map>
#include <set>
#include <string>

namespace foliant::hosts::pages {

/// Some letters of a TrueType file, as PostScript takes them.
struct TrueTypeSubset {
    std::string file;                      ///< an array of strings of digits
    std::map<unsigned, unsigned> numbers;  ///< of a glyph in the file that it is of: its number in this one
    std::string bounding_box;              ///< of all letters of that file, in units of the em
};

/// Throws std::runtime_error with a reason.
TrueTypeSubset truetype_subset(hb_face_t* face, const std::set<unsigned>& glyphs);

}  // namespace foliant::hosts::pages
