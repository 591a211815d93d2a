#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "automation/error.h"
#include "hosts/office/text_document.h"

namespace foliant::hosts::test {

/// A folder for one test, removed with everything in it.
class Scratch {
  public:
    Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch();

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

    /// The names of what is in it, sorted and joined by blanks.
    std::string content() const;

  private:
    std::filesystem::path path_;
};

/// One of the documents that make_documents.py wrote.
std::filesystem::path document(const std::string& name);

/// Opens a document with the engine, which is started by the first call.
std::unique_ptr<TextDocument> open(const std::filesystem::path& path, const std::string& open_password = "",
                                   const std::string& write_password = "");

/// The folder that the engine of this process was started with.
const std::filesystem::path& engine_folder();

/// The automation error that `action` raises; fails the test when it raises none.
automation::Error error_of(const std::function<void()>& action);

std::string read_file(const std::filesystem::path& path);
void write_file(const std::filesystem::path& path, const std::string& content);

}  // namespace foliant::hosts::test
