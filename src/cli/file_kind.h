#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/member.h"

namespace foliant::cli {

/// What a file is, by its first bytes, whatever its name says.
enum class FileKind {
    none,  ///< there is nothing to tell by: no file, an empty one, or one that cannot be read
    pdf,
    postscript,
    text,   ///< text that is none of the above
    other,  ///< anything else: documents, pictures, programs
};

/// Readers accept a PDF that begins within this.
inline constexpr std::size_t pdf_header_within = 1024;

/// Reads some kilobytes at most. Waits for nothing: anything but an ordinary file is `none`.
FileKind file_kind(const std::string& path);

/// "a PDF", "PostScript", "text".
std::string_view kind_name(FileKind kind) noexcept;

/// What a member writes into the file that this parameter of it names; `none` for whatever comes.
FileKind kind_written(const core::Parameter& output) noexcept;

}  // namespace foliant::cli
