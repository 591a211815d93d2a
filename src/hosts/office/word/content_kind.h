#pragma once

#include <string_view>

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// The import filter that reads plain text.
inline constexpr std::string_view plain_text_filter = "Text (encoded)";

/// Decides by its content how a document is to be read.
///
/// LibreOffice on its own would turn any bytes at all into pages of garbage text. Here a name that promises a
/// Word, RTF or OpenDocument file has to hold one; plain text under an old ".doc" name is text, as in Word.
/// A text gets a copy in its place that LibreOffice lays out faster (see with_lines_joined).
/// Raises 5792 (empty or damaged) and 5151 (not a document that Word reads).
ImportFilter import_filter(DocumentFile& file, const Office& office);

}  // namespace foliant::hosts::office
