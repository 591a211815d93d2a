#pragma once

#include <filesystem>
#include <string_view>
#include <sys/types.h>

#include "posix/file_descriptor.h"

namespace foliant::hosts {

/// A file that somebody writes and that appears under its name when it is complete.
class OutputFile {
  public:
    virtual ~OutputFile() = default;

    /// Open for reading and writing.
    virtual int descriptor() const noexcept = 0;

    /// Appends all of `bytes`.
    virtual void write(std::string_view bytes) = 0;

    /// Gives the file its name, in place of what had it before. Nothing can be written afterwards. What is
    /// never committed is gone with this object.
    virtual void commit() = 0;
};

/// A file on its way to a name: it has none, or a hidden one where the file system cannot do without, until
/// `commit`. What is never committed is gone with this object, and without a name also when the process is
/// killed.
///
/// One that takes the place of an ordinary file has its rights from the beginning, as `take_rights` gives them.
/// Where the target is a link that leads to such a file, it takes the place of that file, and the link stays.
///
/// Failures are thrown as std::filesystem::filesystem_error with the target as its path and an errno value as
/// its code; hosts say it in their own words.
class PendingFile : public OutputFile {
  public:
    /// What a pending file is called. Not every file system can hold nameless files (network and FAT ones
    /// cannot); `nameless` falls back on `hidden` there.
    enum class Name { nameless, hidden };

    /// Makes an empty file on the file system of `target`, with the rights of the file that is there, or
    /// those that a new one would get. Fails when the folder is missing or cannot be written, with EISDIR
    /// when `target` is a folder, and with ENOTSUP when it is a device or a pipe, which cannot change from
    /// nothing to complete.
    explicit PendingFile(std::filesystem::path target, Name name = Name::nameless);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile() override;

    int descriptor() const noexcept override { return file_.get(); }

    /// A path that opens the file again, within this process only.
    std::filesystem::path path_in_this_process() const;

    void write(std::string_view bytes) override;
    void commit() override;

  private:
    void open_nameless();
    void open_hidden();
    mode_t first_rights() const noexcept;
    std::filesystem::path folder() const;
    std::filesystem::path hidden_sibling() const;
    [[noreturn]] void fail(int code) const;

    std::filesystem::path named_;   ///< as who asked for it calls it
    std::filesystem::path target_;  ///< the same, or what the link of that name leads to
    bool replaces_ = false;         ///< an ordinary file
    std::filesystem::path hidden_;  ///< its name so far; empty while it has none
    posix::FileDescriptor file_;
};

/// Removes what processes of that group, which have ended, were making for `target` and had given a hidden name. Raises
/// nothing.
void remove_pending_files(const std::filesystem::path& target, pid_t group) noexcept;

/// Gives an open file the rights of the one that it takes the place of: its owner, group, permission bits and
/// access list. Where the owner or the group cannot be kept, nobody but the new owner gets more than he had.
/// What cannot be given is left out; without a `former`, nothing changes.
void take_rights(int descriptor, const std::filesystem::path& former) noexcept;

/// Writes all of `bytes` to an open file. Throws as PendingFile does, `path` being its name.
void write_all(int descriptor, std::string_view bytes, const std::filesystem::path& path);

/// Closes a file that was written; network file systems report a full disk only then. Throws likewise.
void close_written(posix::FileDescriptor& file, const std::filesystem::path& path);

}  // namespace foliant::hosts
