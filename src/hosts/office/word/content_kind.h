#pragma once

#include <filesystem>

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Decides by its content how the document at `path` (an absolute path) is to be read.
///
/// LibreOffice on its own would turn any bytes at all into pages of garbage text. Here a name that promises a
/// Word, RTF or OpenDocument file has to hold one; plain text under an old ".doc" name is text, as in Word.
/// Raises 5174 (no such file), 5792 (empty or damaged), 5151 (not a document that Word reads), 70 or 75.
ImportFilter import_filter(const std::filesystem::path& path, const Office& office);

}  // namespace foliant::hosts::office
