#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "automation/error.h"

namespace foliant::hosts::office::test {

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

/// The folder for the engine of this process; removed after the last test.
const std::filesystem::path& engine_folder();

/// One of the documents that make_documents.py wrote.
std::filesystem::path document(const std::string& name);

/// The automation error that `action` raises; fails the test when it raises none.
automation::Error error_of(const std::function<void()>& action);

std::string read_file(const std::filesystem::path& path);
void write_file(const std::filesystem::path& path, const std::string& content);

}  // namespace foliant::hosts::office::test
