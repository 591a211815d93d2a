#pragma once

#include <string>

#include "posix/file_descriptor.h"

namespace foliant::cli {

/// What stands under an output's name before a call: kept while the call replaces it, and put back when the
/// call fails. Members delete the old file long before they have a new one; whoever waits for the call still
/// has its second name.
///
/// The second name is a hidden one in the same folder, so nothing is copied and the file that comes back is
/// the very one that was there, with owner, rights, times and links. It is a hard link, or, where the file
/// system has none, the file itself is moved aside.
///
/// Destroying this does nothing, since a forked worker inherits it; exactly one of `put_back` and `drop`
/// ends it. Hosts never write into a file that is there.
class KeptFile {
  public:
    /// A call that was killed together with its command, and a power failure, leave a file under its second
    /// name. When nothing is at `path` and such a file is, which no call holds at this moment, it gets its
    /// name back. Returns whether one did.
    static bool bring_back_lost(const std::string& path) noexcept;

    /// Keeps what is at `path`; nothing to do when nothing is. Raises an automation error that says why the
    /// file cannot be replaced: it may not be touched, or another call is about to replace it.
    void keep(const std::string& path);

    /// The former file gets its name back, in place of whatever has it now.
    void put_back() noexcept;

    /// The former file is not needed any more.
    void drop() noexcept;

    /// Whether the former file still stands under its name, so that nobody has made a new one.
    bool is_in_place() const noexcept;

  private:
    bool open_folder_of(const std::string& path);
    void lock_against_other_calls(const std::string& path);
    int give_second_name();

    posix::FileDescriptor folder_;
    posix::FileDescriptor lock_;
    std::string name_;    ///< in the folder
    std::string second_;  ///< the hidden name; empty while nothing is kept
};

}  // namespace foliant::cli
