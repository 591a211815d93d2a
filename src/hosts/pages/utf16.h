#pragma once

#include <optional>
#include <string_view>

namespace foliant::hosts::pages {

enum class ByteOrder { little_endian, big_endian };

/// The byte order in which a file without a mark can only be a text in UTF-16, by its first 64 kB. Nothing for texts in
/// UTF-8 and code pages, for what programs read, and for few letters that could be either.
std::optional<ByteOrder> utf16_without_mark(std::string_view file);

}  // namespace foliant::hosts::pages
