#pragma once

#include <string>

#include "hosts/office/engine/loaded_document.h"

namespace foliant::hosts::office {

/// Who reads the PDF: a person, or the PostScript driver, which wants pictures untouched and has no use for
/// comments and tags.
enum class PdfUse { document, postscript };

/// The bytes of a PDF of the document. `pages` is in LibreOffice's form (see format_page_runs); empty means
/// all. Raises a UNO exception, or 61 as an error of the document's application when the
/// result is cut short.
std::string export_to_pdf(const LoadedDocument& document, const std::string& pages, PdfUse use);

}  // namespace foliant::hosts::office
