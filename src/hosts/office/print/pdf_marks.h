#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts::office {

/// What a PDF document holds beside its drawing, in the words with which PostScript tells it to a distiller.
struct PdfMarks {
    std::string document;            ///< for the set-up: information, language, outline
    std::vector<std::string> pages;  ///< for each page its links, in the coordinates of its drawing
};

/// The marks of a PDF document (its bytes) whose pages have their origin at the lower left and are not turned,
/// as LibreOffice writes them. Everything that comes from the document is written in digits, so its texts
/// cannot become PostScript. `title` is for a document that has none. Printers that know no marks pass over
/// them. Raises std::exception when the document cannot be read.
PdfMarks read_pdf_marks(std::string_view pdf, std::string_view title);

}  // namespace foliant::hosts::office
