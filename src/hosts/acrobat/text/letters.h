#pragma once

/// What letters are, as far as reading and searching go by it.
namespace foliant::hosts::acrobat::text {

/// Written from right to left.
bool is_right_to_left(char32_t letter);

/// Part of a word: letters, digits and what is put above or below them.
bool is_word_letter(char32_t letter);

/// Of a script that puts no blanks between words, as Chinese and Thai do.
bool stands_without_blanks(char32_t letter);

/// An accent or another sign that belongs to the letter before it.
bool is_mark(char32_t letter);

bool is_digit(char32_t letter);

}  // namespace foliant::hosts::acrobat::text
