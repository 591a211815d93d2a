#pragma once

#include "hosts/office/engine/content.h"
#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Decides by its content how a presentation is to be read: PowerPoint's own kinds, old and new, and
/// OpenDocument. Raises 80004005 for what is empty or damaged, and for what PowerPoint does not read.
ImportFilter presentation_filter(const DocumentFile& file, const Office& office);

/// Whether a compound file with a presentation in it is encrypted.
bool is_encrypted_presentation(const Streams& streams);

}  // namespace foliant::hosts::office
