#pragma once

#include <memory>
#include <string>

#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/office.h"

namespace foliant::hosts::office {

/// The passwords that came with a request to open a document; either may be empty.
struct Passwords {
    std::string open;
    std::string write;
};

/// How a document is to be read: the name of the LibreOffice import filter, and its options (mostly empty).
struct ImportFilter {
    std::string name;
    std::string options;
    /// Whose errors the document raises, and who exports it; null for whom it is opened.
    const Application* application = nullptr;
};

/// Loads a document hidden. The file is only read: nothing is locked, and nothing is written beside it.
/// Macros do not run, links are not followed.
///
/// The open password may be empty. The write password may be empty too, and is answered where LibreOffice
/// asks for it; since the document is never written, it opens without. Raises, as errors of `application`,
/// wrong_password (also for one that is needed and missing) and file_corrupted.
std::unique_ptr<LoadedDocument> load_document(const Office& office, DocumentFile file,
                                              const ImportFilter& filter, const Passwords& passwords,
                                              Machine& machine, const Application& application);

}  // namespace foliant::hosts::office
