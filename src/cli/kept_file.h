#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "posix/file_descriptor.h"

namespace foliant::cli {

/// By this, of two calls that replace one file at the same time the second is refused. It ends with the last
/// process of the call, however that ends.
class ReplacementLock {
  public:
    /// Opens what is to be locked: a process that is forked between this and `take` holds the lock, too.
    void open(const std::string& path);

    /// Locks the ordinary file at `path`, or the one that a link there leads to; nothing to do for anything else,
    /// nor where the file may not be read or the file system has no locks. Raises an automation error when another
    /// call has locked it, `advice` being what to do then ("Wait for it.").
    void take(const std::string& path, std::string_view advice);

    void give_up() noexcept { file_.reset(); }

  private:
    posix::FileDescriptor file_;
};

/// While this exists, what this process makes is its user's alone. A file that takes the place of a kept one is
/// given the rights of that one at the end, and has no others until then.
class OwnersOnly {
  public:
    OwnersOnly() noexcept : former_(::umask(S_IRWXG | S_IRWXO)) {}
    OwnersOnly(const OwnersOnly&) = delete;
    OwnersOnly& operator=(const OwnersOnly&) = delete;
    ~OwnersOnly() { ::umask(former_); }

  private:
    mode_t former_;
};

/// What stands under an output's name before a call: kept while the call replaces it, and put back when the
/// call fails. Members delete the old file long before they have a new one; whoever waits for the call still
/// has its second name.
///
/// The second name is a hidden one in the same folder, so nothing is copied and the file that comes back is
/// the very one that was there, with owner, rights, times and links. It is a hard link, or, where the file
/// system has none, the file itself is moved aside. Of a link to an ordinary file both are kept: some members
/// remove the link, others have what it leads to replaced.
///
/// Destroying this does nothing, since processes share it by forking; exactly one of `put_back` and `drop` ends it.
/// Hosts never write into a file that is there.
class KeptFile {
  public:
    /// A call that was killed together with its command, and a power failure, leave a file under its second
    /// name. When nothing is at `path` and such a file is, which no call holds at this moment, it gets its
    /// name back. Returns whether one did.
    static bool bring_back_lost(const std::string& path) noexcept;

    /// Looks at what stands at `path`, and changes nothing. A process that is forked between this and `keep`, and the one
    /// that forked it, can both tell what was kept, and hold on to it.
    void expect(const std::string& path);

    /// Keeps what was expected; nothing to do when nothing stands there. Raises an automation error that says why the
    /// file cannot be replaced: it may not be touched, or another call is about to replace it.
    void keep();

    /// Finds out what another process has kept meanwhile.
    void take_notice() noexcept;

    /// The former file gets its name back, in place of whatever has it now.
    void put_back() noexcept;

    /// The former file is not needed any more: the new one gets its rights.
    void drop() noexcept;

    /// Whether anything is kept.
    explicit operator bool() const noexcept { return static_cast<bool>(named_); }

    /// Whether the former file still stands under its name, so that nobody has made a new one.
    bool is_in_place() const noexcept;

  private:
    /// A file and its two names.
    class Names {
      public:
        void look_at(const std::string& path);
        bool is_there(struct stat& status) const noexcept;
        /// Both return 0, or the reason why the file can have no other name.
        int link();
        int link_or_move();
        void take_notice() noexcept;

        explicit operator bool() const noexcept { return !second_.empty(); }
        bool is_in_place() const noexcept;
        void give_rights_to_new_one() const noexcept;
        void put_back() noexcept;
        void forget() noexcept;

      private:
        posix::FileDescriptor folder_;
        std::string name_;    ///< in the folder
        std::string hidden_;  ///< the second name that it is to have
        std::string second_;  ///< that name; empty while nothing is kept
    };

    std::string path_;
    ReplacementLock lock_;
    Names named_;
    bool is_link_ = false;  ///< to an ordinary file
    Names led_to_;          ///< that file
};

}  // namespace foliant::cli
