#pragma once

#include <filesystem>
#include <sys/types.h>

#include "posix/file_descriptor.h"

namespace foliant::platform::local {

/// A folder of this process and its children alone, `foliant-XXXXXX` with mode 0700, made when somebody asks for it and
/// removed with everything in it when its owner ends. A file in it is locked as long as the process that made it lives;
/// the system lets go of that lock however the process ends, so a later call finds the folders of killed processes and
/// removes them (`sweep`).
class PrivateFolder {
  public:
    /// Chooses where in `parent` it will be. This process, and not a child that makes it, is its owner.
    explicit PrivateFolder(const std::filesystem::path& parent);
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    /// Removes the folder, but not in a forked child, which inherits the object and not the folder.
    ~PrivateFolder();

    /// Where it is, absolute. Makes it, unless it was made; where there is no room for it, after a sweep.
    /// Raises an automation error that names its parent when it cannot be made.
    const std::filesystem::path& path();

    /// Where it is or will be, absolute.
    const std::filesystem::path& place() const noexcept { return path_; }

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
    void make();
    bool try_to_make();

    std::filesystem::path path_;
    posix::FileDescriptor lock_;  ///< once it was made
    pid_t owner_;
};

}  // namespace foliant::platform::local
