#pragma once

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Decides by its content how a presentation is to be read: PowerPoint's own kinds, old and new, and
/// OpenDocument. Raises 80004005 for what is empty or damaged, and for what PowerPoint does not read.
ImportFilter presentation_filter(const DocumentFile& file, const Office& office);

}  // namespace foliant::hosts::office
