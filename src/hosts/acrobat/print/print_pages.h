#pragma once

#include <cstdint>

#include "hosts/acrobat/document.h"

namespace foliant::hosts::acrobat::print {

/// Prints pages of a document on the user's default printer. Where that is the PDF printer, its dialog "Save
/// PDF File As" asks for the file, which a window shows from then on. Pages count from 0. Raises when a page
/// is not there, when the document may not be printed, and what dialog, printer and output raise; nothing
/// was printed then.
void print_pages(Document& document, std::int32_t first, std::int32_t last);

}  // namespace foliant::hosts::acrobat::print
