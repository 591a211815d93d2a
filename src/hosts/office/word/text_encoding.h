#pragma once

#include <string_view>

namespace foliant::hosts::office {

/// The 8-bit encoding of plain texts in the language of that locale ("ru_RU.UTF-8"), as Windows has it, under
/// the name that LibreOffice's text import knows. Western European for a language without one of its own.
std::string_view text_encoding(std::string_view locale);

/// The name of the locale that this process's user has chosen for characters, "" when there is none.
std::string_view character_locale();

}  // namespace foliant::hosts::office
