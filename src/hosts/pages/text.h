#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::pages {

/// How the bytes of a text file are to be understood.
enum class Encoding { utf8, utf16_le, utf16_be, code_page };

/// By the mark at its beginning, else by what the bytes can be: UTF-16 where they can be nothing else, UTF-8 where
/// all of it is, else a code page.
Encoding encoding_of(std::string_view file);

/// Whether a file holds what only programs read: control characters of many kinds. A few of them (a log's zeros,
/// separators, escapes) make no text a program.
bool is_for_programs(std::string_view file);

/// The text of a file, in UTF-8. What cannot be understood, and what never is a letter, becomes U+FFFD;
/// control characters that stand for nothing become blanks, all but tabs, line ends and form feeds.
/// `code_page` is that of texts in no other encoding, such as 1252.
std::string text_of(std::string_view file, int code_page);

}  // namespace foliant::hosts::pages
