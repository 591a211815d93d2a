#pragma once

#include <memory>

#include "hosts/office/word/document.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

using DocumentPtr = std::shared_ptr<Document>;

/// The document, for a call on one of its objects. Raises 5825 when it has been closed.
inline Document& opened(const DocumentPtr& document) {
    if (!document->is_open()) throw word_error(WordError::object_deleted, "The document has been closed.");
    return *document;
}

}  // namespace foliant::hosts::office
