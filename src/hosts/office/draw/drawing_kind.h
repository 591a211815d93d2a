#pragma once

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Decides by its content how a drawing is to be read: Visio's own kinds (.vsd, .vsdx, .vdx) and OpenDocument.
/// Raises an error of Visio's for what is empty or damaged, and for what it does not read.
ImportFilter drawing_filter(const DocumentFile& file, const Office& office);

/// Whether a file whose first bytes are `start` is a Visio drawing in XML that breaks off. LibreOffice takes what there
/// is of one for all of it.
bool is_cut_short(const DocumentFile& file, std::string_view start);

}  // namespace foliant::hosts::office
