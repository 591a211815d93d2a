#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts::distiller {

/// A PostScript file as far as it can be known without running it.
struct SourceFile {
    std::filesystem::path path;  ///< absolute
    std::uintmax_t bytes = 0;
    std::optional<int> declared_pages;   ///< of its %%Pages comment, also when that says (atend)
    bool looks_like_postscript = false;  ///< begins as printer drivers and drawing programs begin their files
    bool made_by_cairo = false;          ///< as its comments say
};

/// The input of a job. A driver is no file: `main` is but its name, and `parts` are the files that it runs,
/// in order.
struct Source {
    SourceFile main;
    bool is_driver = false;
    std::vector<SourceFile> parts;
    std::vector<std::string> part_names;  ///< of `parts`, as the driver writes them

    /// The files whose bytes and pages make up the job.
    std::vector<SourceFile> measured_files() const;
};

/// Looks at an input. Throws DistillError for a file that is missing, unreadable, no ordinary file, empty, or
/// a PDF.
Source examine_source(const std::filesystem::path& input);

/// Looks at everything that a driver of this name and with these lines runs. Throws DistillError for lines
/// that are no driver, for one that runs nothing, and for files as above; an empty one is taken.
Source examine_driver(const std::filesystem::path& name, const std::vector<std::string>& lines);

/// The page count that the comments of a PostScript file declare. `head` is its first bytes and `tail` its
/// last; they may overlap. None where nothing, nonsense or a negative number is declared.
std::optional<int> declared_pages(std::string_view head, std::string_view tail);

}  // namespace foliant::hosts::distiller
