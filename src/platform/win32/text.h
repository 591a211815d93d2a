#pragma once

#include <string>
#include <string_view>

namespace foliant::platform::win32 {

// Three forms of text meet on Windows: UTF-8 inside the library, UTF-16 in automation strings and in the wide
// calls, and the ANSI code page in the ANSI calls.

/// UTF-16 of a UTF-8 text. Half of a surrogate pair, written in UTF-8 as `to_utf8` does, becomes that half
/// again; each byte that is no UTF-8 becomes U+FFFD.
std::wstring to_utf16(std::string_view utf8);

/// UTF-8 of a UTF-16 text. Nothing is lost: half of a surrogate pair becomes the three bytes that its number
/// would have, and `to_utf16` gives it back.
std::string to_utf8(std::wstring_view utf16);

/// The bytes of the system's ANSI code page. Characters that it does not have become "?"; none is replaced by
/// one that merely looks alike, since a path changed that way names another file.
std::string to_ansi(std::string_view utf8);

/// The text of bytes in the system's ANSI code page.
std::string from_ansi(std::string_view bytes);

}  // namespace foliant::platform::win32
