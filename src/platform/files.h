#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace foliant::platform {

/// A text file being written line by line. Destroying one that was not closed lets go of it, with errors passed
/// over; whether what was written stays is the system's to say.
class TextFile {
  public:
    virtual ~TextFile() = default;

    /// Writes the line in the ANSI code page, then carriage return and line feed. Raises 57 or 61 (disk
    /// full).
    virtual void write_line(std::string_view line) = 0;

    /// Closes the file; what could not be written is raised here at the latest.
    virtual void close() = 0;
};

/// Whom a text file is for.
enum class TextPurpose {
    result,   ///< the user, under the path that was asked for
    scratch,  ///< a host, until the same call removes it again
};

/// The files of a folder whose names match a pattern, one after the other.
class Listing {
  public:
    virtual ~Listing() = default;

    /// The bare name of the next match; nothing when there is no other, however often it is asked for.
    ///
    /// A file that is there all the time is named once. One that comes or goes between two calls may be named
    /// or not, and disturbs no other.
    virtual std::optional<std::string> next() = 0;
};

/// Files and folders by path. Failures are run-time errors: 52 bad file name, 53 file not found, 70
/// permission denied, 75 path/file access, 76 path not found.
class Files {
  public:
    virtual ~Files() = default;

    /// What separates the parts of a path here: "\" on Windows, "/" elsewhere.
    virtual char separator() const noexcept = 0;

    /// The length in bytes, as the directory knows it; the file is not opened, so one that another program
    /// holds without sharing has a length too. Raises 53 when there is none (an empty path, a folder).
    virtual std::int64_t length(const std::string& path) = 0;

    /// Whether the process's current folder has an entry of that bare name.
    virtual bool exists_in_current_folder(const std::string& name) = 0;

    /// Deletes a file. Raises 53 when it is not there, 70 when it may not be deleted.
    virtual void remove(const std::string& path) = 0;

    /// Makes one folder; its parent has to exist. Raises 75 when something of that name is there, 76 when the
    /// parent is missing or the path makes no sense.
    virtual void make_folder(const std::string& path) = 0;

    /// Begins a text file in place of what stands under that path. Where hosts are asked for the way to a scratch
    /// text, it need be no file: what counts is that they find it under `path`, and that `length` and
    /// `remove` of that path mean it until it is removed.
    virtual std::unique_ptr<TextFile> create_text(const std::string& path, TextPurpose purpose) = 0;

    /// Begins to list the normal files (no folders, nothing hidden) of a folder whose names match, in the
    /// order of the directory: by name, ignoring case. The pattern is a path whose last part may hold "*" and
    /// "?"; case is ignored, and "*.*" matches every name. A pattern without a folder means the current one,
    /// one that ends with a separator, or is empty, every file.
    ///
    /// No match, and a folder that is not there, is an empty listing. Raises 52 for a path that makes no
    /// sense to the system, and 70 when the folder may not be read.
    virtual std::unique_ptr<Listing> list(const std::string& pattern) = 0;
};

}  // namespace foliant::platform
