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

/// The input of a job. A driver's own text runs nothing itself: `parts` are the files it names, in order.
struct Source {
    SourceFile main;
    std::vector<SourceFile> parts;
    std::vector<std::string> part_names;  ///< of `parts`, as the driver writes them

    /// The files whose bytes and pages make up the job.
    std::vector<SourceFile> measured_files() const;
};

/// Looks at an input and, where it is a driver, at everything it names. Throws DistillError for a file that
/// is missing, unreadable, no ordinary file, or a PDF, and for an empty input.
Source examine_source(const std::filesystem::path& input);

/// The page count that the comments of a PostScript file declare. `head` is its first bytes and `tail` its
/// last; they may overlap. None where nothing, nonsense or a negative number is declared.
std::optional<int> declared_pages(std::string_view head, std::string_view tail);

}  // namespace foliant::hosts::distiller
