#pragma once

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Decides by its content how a workbook is to be read: Excel's own kinds, old and new, OpenDocument, and
/// values in text, separated by the sign that the first line has most of (comma, semicolon, tab). Raises 1004
/// for what is empty or damaged, and for what Excel does not read.
ImportFilter workbook_filter(const DocumentFile& file, const Office& office);

/// Whether that filter reads values in text.
bool reads_text(const ImportFilter& filter);

}  // namespace foliant::hosts::office
