#pragma once

#include <filesystem>

#include "posix/file_descriptor.h"

namespace foliant::hosts {

/// What a host needs of a document.
enum class DocumentAccess {
    place,  ///< somewhere an engine can open it by its name, besides the open file
    open_file,
};

/// A document that is open for reading: the file that was found under its name, whatever that leads to later.
struct DocumentFile {
    std::filesystem::path path;  ///< absolute; for messages and titles
    /// Where it can be opened again: `path`, or a copy of it for a host that may not reach that; empty where
    /// only the open file was asked for.
    std::filesystem::path place;
    posix::FileDescriptor descriptor;
};

/// Opens a document. Throws std::filesystem::filesystem_error with its path and an errno value: ENOENT,
/// EACCES ..., EISDIR for a folder, and ENOTSUP for a device or a pipe, which nothing waits for.
DocumentFile open_document_file(const std::filesystem::path& path);

}  // namespace foliant::hosts
