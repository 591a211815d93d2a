#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <sys/stat.h>

#include "posix/file_descriptor.h"

namespace foliant::platform::local {

// A small file of the user that several processes read and change. What fails raises an automation error that
// names the file.

/// What the directory says about it; nothing when there is no such file.
std::optional<struct stat> settings_file_status(const std::filesystem::path& file);

/// Its content; nothing when there is no such file.
std::optional<std::string> read_settings_file(const std::filesystem::path& file);

/// Held while a file is changed, against other processes that do the same. Makes the file's folder (for the
/// user alone) and a file beside it that stays, empty: `registry.json.lock`.
class SettingsLock {
  public:
    /// Waits for whoever holds it.
    explicit SettingsLock(const std::filesystem::path& file);

  private:
    posix::FileDescriptor lock_;
};

/// Replaces the content in one step: readers see the old content or the new one, after a crash too. A new
/// file is for the user alone; one that was there keeps its mode, and a link to the file stays a link.
void replace_settings_file(const std::filesystem::path& file, const std::string& content);

}  // namespace foliant::platform::local
