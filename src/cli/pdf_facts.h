#pragma once

#include <optional>
#include <string>

namespace foliant::cli {

/// What a file says of itself as a PDF, as far as it can be told from its ends without an engine: the
/// trailer, and from there the root of the page tree. Enough for what our own engines write; of anything more
/// elaborate the number of pages stays unknown.
struct PdfFacts {
    bool complete = false;   ///< it begins and ends as a PDF does, and its trailer is where it says
    bool encrypted = false;  ///< the trailer names an encryption
    std::optional<long> pages;
};

/// Reads some kilobytes, whatever the file holds. Nothing that the file says is trusted: numbers lead to
/// reads within it or to no answer.
PdfFacts pdf_facts(const std::string& path);

}  // namespace foliant::cli
