#pragma once

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Whether a document is plain text by its content, which takes no office to print: neither of a known kind nor with
/// marks of one in it. Raises 5792 for an empty one, and 5151 for text under a name that promises more.
bool is_plain_text(const DocumentFile& file);

/// Decides by its content how a document is to be read.
///
/// LibreOffice on its own would turn any bytes at all into pages of garbage text. Here a name that promises a
/// Word, RTF or OpenDocument file has to hold one; plain text under an old ".doc" name is text, as in Word.
/// A text gets a copy in its place that LibreOffice lays out faster (see with_lines_joined).
/// Raises 5792 (empty or damaged) and 5151 (not a document that Word reads).
ImportFilter import_filter(DocumentFile& file, const Office& office);

}  // namespace foliant::hosts::office
