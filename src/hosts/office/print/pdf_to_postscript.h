#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// A PDF document that could not be turned into PostScript; `what()` says why.
struct PostScriptFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Turns a PDF document (its bytes) into PostScript level 2 that follows the document structuring conventions
/// (%%Pages, %%Page, %%Title). Every page keeps its own size, a landscape page being one that is wider than
/// high, and text stays text: distilled again, it can be searched and copied, ligatures and every script
/// included. So do links, outline, information and language (see read_pdf_marks). `title` becomes the job's name,
/// and the title of a PDF made of it when the document has none.
///
/// The document should be free of transparency (see with_flattening_mended): a page that uses it becomes one picture.
/// Raises PostScriptFailure.
std::string pdf_to_postscript(std::string_view pdf, std::string_view title);

}  // namespace foliant::hosts::office
