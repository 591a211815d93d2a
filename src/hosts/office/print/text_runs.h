#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// The PostScript that poppler writes, with pieces of text that only kerning parts shown in one go: the distances
/// between them are added to the widths of the characters before. LibreOffice kerns every few characters, and
/// to show a piece takes an interpreter as long as to show a line. Everything comes out at the same place.
std::string with_whole_text_runs(std::string_view postscript);

}  // namespace foliant::hosts::office
