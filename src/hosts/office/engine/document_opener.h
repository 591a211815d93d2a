#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "hosts/machine.h"
#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Finds out how an application reads what a file holds; raises an error of the application when it does not.
/// It may put another open file in the place of the document's, for the filter to read.
using ChooseFilter = std::function<ImportFilter(DocumentFile&, const Office&)>;

/// Opens the file of a document. Raises, as errors of `application`, file_not_found, unreadable for a folder, a device or
/// a pipe, and 70.
DocumentFile open_file(Machine& machine, const std::filesystem::path& path, const Application& application);

/// Loads a document, and starts LibreOffice before the first one (see load_document for what is promised). Raises, as
/// errors of `application`, what `choose` and load_document raise.
std::unique_ptr<LoadedDocument> load_in_office(Machine& machine, DocumentFile file,
                                               const Passwords& passwords, const Application& application,
                                               const ChooseFilter& choose);

/// Opens a document, whose file `machine` opens, and starts LibreOffice before the first one (see
/// load_document for what is promised). Raises, as errors of `application`, what `choose` and load_document
/// raise, file_not_found, unreadable for a folder, a device or a pipe, and 70.
std::unique_ptr<LoadedDocument> open_in_office(Machine& machine, const std::filesystem::path& path,
                                               const Passwords& passwords, const Application& application,
                                               const ChooseFilter& choose);

}  // namespace foliant::hosts::office
