#pragma once

#include <filesystem>
#include <string>

namespace foliant::hosts::office::test {

/// The folder for the engine of this process; main removes it.
const std::filesystem::path& engine_folder();

/// One of the documents that make_documents.py wrote.
std::filesystem::path document(const std::string& name);

/// Whether a text is numbers with dots between them, such as "7.4.7.2".
bool is_version(const std::string& text);

}  // namespace foliant::hosts::office::test
