#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "posix/file_descriptor.h"

namespace foliant::hosts::web {

/// Where Chromium lies; nothing when it is not installed.
std::optional<std::filesystem::path> find_browser();

/// A running Chromium without windows, which is told what to do over two pipes. It ends with this object, all
/// of its processes with it, and with the process that has started it.
///
/// All of its processes see the system's programs and libraries, fonts, the names of servers and the
/// certificates that are trusted, its profile, the files that it is to show, and nothing else of the user's.
class Browser {
  public:
    /// Starts it with a profile of its own in `profile`, a new folder. Throws std::system_error.
    Browser(const std::filesystem::path& program, const std::filesystem::path& profile,
            const std::vector<std::filesystem::path>& shown);
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;
    ~Browser();

    int input() const noexcept { return input_.get(); }    ///< what is written here it reads
    int output() const noexcept { return output_.get(); }  ///< what it writes can be read here

  private:
    pid_t process_ = 0;
    posix::FileDescriptor input_;
    posix::FileDescriptor output_;
};

}  // namespace foliant::hosts::web
