#pragma once

#include <string_view>

namespace foliant::hosts {

/// The code page of Windows' plain texts in the language of that locale ("ru_RU.UTF-8"): 1251. 1252, Western
/// European, for a language without one of its own.
int text_code_page(std::string_view locale);

/// The name of the locale that this process's user has chosen for characters, "" when there is none.
std::string_view character_locale();

/// Whether the text can be UTF-8. One that breaks off may end within a letter.
bool is_utf8(std::string_view text, bool breaks_off = false);

}  // namespace foliant::hosts
