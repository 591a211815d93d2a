#pragma once

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Decides by its content how a drawing is to be read: Visio's own kinds (.vsd, .vsdx, .vdx) and OpenDocument.
/// Raises an error of Visio's for what is empty or damaged, and for what it does not read.
ImportFilter drawing_filter(const DocumentFile& file, const Office& office);

}  // namespace foliant::hosts::office
