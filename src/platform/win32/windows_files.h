#pragma once

#include "platform/files.h"

namespace foliant::platform::win32 {

/// Files and folders by Windows paths. The path may hold any character; the content of a text file is in the
/// ANSI code page.
class WindowsFiles : public Files {
  public:
    char separator() const noexcept override { return '\\'; }
    std::int64_t length(const std::string& path) override;
    bool exists_in_current_folder(const std::string& name) override;
    void remove(const std::string& path) override;
    void make_folder(const std::string& path) override;
    std::unique_ptr<TextFile> create_text(const std::string& path, TextPurpose purpose) override;
    std::unique_ptr<Listing> list(const std::string& pattern) override;
};

}  // namespace foliant::platform::win32
