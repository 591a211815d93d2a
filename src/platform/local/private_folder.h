#pragma once

#include <filesystem>
#include <sys/types.h>

#include "posix/file_descriptor.h"

namespace foliant::platform::local {

/// A folder of this process alone, `foliant-XXXXXX` with mode 0700, removed with everything in it when its
/// owner ends. A file in it is locked as long as the owner lives; the system lets go of that lock however the
/// process ends, so a later call finds the folders of killed processes and removes them (`sweep`).
class PrivateFolder {
  public:
    /// Makes the folder in `parent`; where there is no room for it, after a sweep.
    /// Raises an automation error that names `parent` when it cannot be made.
    explicit PrivateFolder(const std::filesystem::path& parent);
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    /// Removes the folder, but not in a forked child, which inherits the object and not the folder.
    ~PrivateFolder();

    /// Absolute.
    const std::filesystem::path& path() const noexcept { return path_; }

    /// Removes the folder before its time, for a process that is about to end without unwinding, or for a
    /// forked child whose parent was killed. What another thread writes meanwhile may stay; the next sweep
    /// removes it.
    void remove() noexcept;

    /// `$TMPDIR`, or `/tmp` when that names no folder.
    static std::filesystem::path usual_parent();

    /// Removes from `parent` the folders whose owner is dead: only real folders that belong to this user and
    /// hold a lock file that nobody has locked. Never raises.
    static void sweep(const std::filesystem::path& parent) noexcept;

  private:
    void make(const std::filesystem::path& parent);
    bool try_to_make(const std::filesystem::path& parent);

    std::filesystem::path path_;
    posix::FileDescriptor lock_;
    pid_t owner_;
};

}  // namespace foliant::platform::local
