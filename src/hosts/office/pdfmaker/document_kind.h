#pragma once

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Acrobat's PDFMaker, which raises its failures without numbers of their own, with the part of LibreOffice that one
/// kind of document takes.
constexpr Application pdfmaker_with(const Application& part) {
    constexpr std::int32_t failed = -2147467259;
    return {
        .name = "Acrobat PDFMaker",
        .reads = "a text document, workbook, presentation, drawing or picture that LibreOffice reads",
        .library = part.library,
        .package = part.package,
        .pdf_filter = part.pdf_filter,
        .command_failed = failed,
        .value_out_of_range = failed,
        .unreadable = failed,
        .file_not_found = failed,
        .wrong_password = failed,
        .file_corrupted = failed,
        .encrypted =
            " is encrypted, and PDFMaker takes no passwords. Convert a text or a workbook with a member of its application, such as CreatePDFfromWord2; save anything else without a password."};
}

/// PDFMaker before it is known what it is given.
extern const Application acrobat_pdfmaker;

/// Decides by its content which kind of document a file is, and how it is to be read. Its name counts only where a
/// text may be a table of values (.csv, .tsv). Raises an error of PDFMaker's for what is empty, damaged or
/// encrypted, and for what LibreOffice does not read.
ImportFilter document_filter(DocumentFile& file, const Office& office);

}  // namespace foliant::hosts::office
