#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::pages {

/// Appends a number and a blank.
void append_number(std::string& postscript, double number);

/// Appends bytes as a string, in lines of a length that every program takes.
void append_string(std::string& postscript, std::string_view bytes);

/// Appends the digits of bytes, two for each, in lines of such a length.
void append_digits(std::string& postscript, std::string_view bytes);

/// Appends the digits of a text, UTF-8, in UTF-16 with the higher byte first.
void append_utf16(std::string& postscript, std::string_view text);

/// A title as a comment of the structuring conventions: one line of at most 255 characters, in ASCII because a comment
/// has no encoding.
std::string title_comment(std::string_view title);

}  // namespace foliant::hosts::pages
