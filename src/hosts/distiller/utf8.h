#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::distiller {

/// What a document prints is bytes. Text that is UTF-8 stays as it is, anything else is read as Latin-1, and
/// control characters other than tabs become question marks.
std::string as_utf8(std::string_view bytes);

}  // namespace foliant::hosts::distiller
