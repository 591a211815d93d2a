#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "hosts/office/scratch.h"
#include "hosts/office/word/document.h"

namespace foliant::hosts::office::test {

/// Opens a document with the engine, which is started by the first call.
std::unique_ptr<Document> open(const std::filesystem::path& path, const std::string& open_password = "",
                               const std::string& write_password = "");

}  // namespace foliant::hosts::office::test
