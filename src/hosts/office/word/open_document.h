#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "hosts/machine.h"
#include "hosts/office/word/document.h"

namespace foliant::hosts::office {

/// Opens a Word, OpenDocument, RTF or HTML document with LibreOffice (see load_document for what is promised), and a plain
/// text without, whose file `machine` opens. Raises 5174 (no such file), 5408 (password needed or wrong), 5792 (empty or damaged),
/// 5151 (not a document that Word reads), 70.
std::unique_ptr<Document> open_document(Machine& machine, const std::filesystem::path& path,
                                        const std::string& open_password, const std::string& write_password);

}  // namespace foliant::hosts::office
