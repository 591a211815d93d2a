#pragma once

#include <optional>
#include <string>

#include "hosts/document_file.h"
#include "hosts/office/engine/office.h"

namespace foliant::hosts::office {

/// What LibreOffice takes a document for by its content alone.
struct DetectedKind {
    std::string filter;   ///< the import filter that reads it
    std::string service;  ///< what it becomes: "com.sun.star.text.TextDocument"
};

/// Asks LibreOffice what a document is. The file's name is kept from it, which would make it see one in anything,
/// and its opinion on WordPerfect is not asked: a version without a mark of its own is seen in noise. Nothing where
/// it does not know, or sees a plain text.
std::optional<DetectedKind> detect_kind(const DocumentFile& file, const Office& office);

}  // namespace foliant::hosts::office
