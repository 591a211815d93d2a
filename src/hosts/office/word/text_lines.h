#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// How the lines of a text file are written. A byte order mark is a part of the text.
struct LineForm {
    enum class Unit { byte, utf16_little_endian, utf16_big_endian };
    Unit unit = Unit::byte;
    char end = '\n';  ///< or '\r', of texts that have no line feed; before a line feed it is none
};

/// The text in a form in which LibreOffice lays it out twice as fast, and the pages come out the same: a carriage
/// return, which ends a paragraph, behind every sixteenth line or so, and a line feed, which ends only the line,
/// behind the others. By itself LibreOffice has a paragraph for each line. The end of the last line is left out.
std::string with_lines_joined(std::string_view text, LineForm form);

}  // namespace foliant::hosts::office
