#pragma once

#include <filesystem>

#include "hosts/distiller/file_descriptor.h"

namespace foliant::hosts::distiller {

/// A file on its way to a name: it has none, or a hidden one where the file system cannot do without, until
/// `commit`. What is never committed is gone with this object, and without a name also when the process is
/// killed.
class PendingFile {
  public:
    /// What a pending file is called. Not every file system can hold nameless files (network and FAT ones
    /// cannot); `nameless` falls back on `hidden` there.
    enum class Name { nameless, hidden };

    /// Makes an empty file on the file system of `target`, with the rights that a new file there would get.
    /// Throws DistillError when the folder is missing or cannot be written, or `target` is a folder.
    explicit PendingFile(std::filesystem::path target, Name name = Name::nameless);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    /// Open for reading and writing.
    int descriptor() const { return file_.get(); }

    /// A path that opens the file again, within this process only.
    std::filesystem::path path_in_this_process() const;

    /// Gives the file its name, in place of what had it before. Throws DistillError.
    void commit();

  private:
    void open_nameless();
    void open_hidden();
    std::filesystem::path hidden_sibling() const;

    std::filesystem::path target_;
    std::filesystem::path hidden_;  ///< its name so far; empty while it has none
    FileDescriptor file_;
};

/// Whether the disk that `folder` is on can take no more; false also where that cannot be known.
bool disk_is_full(const std::filesystem::path& folder);

}  // namespace foliant::hosts::distiller
