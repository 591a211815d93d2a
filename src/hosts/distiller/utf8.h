#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::distiller {

/// What a document prints is bytes. Text that is UTF-8 stays as it is, anything else is read as Latin-1.
std::string as_utf8(std::string_view bytes);

/// The text with every control character written out as PostScript writes it in a string ("\n", "\033"), for
/// sentences of ours that quote a name or a word of a document.
std::string visible(std::string_view utf8);

}  // namespace foliant::hosts::distiller
