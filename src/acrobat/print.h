#pragma once

#include <cstdint>
#include <string>

#include "acrobat/open_document.h"
#include "session/session.h"

namespace foliant::acrobat {

/// How Acrobat is to print.
struct PrintSettings {
    std::string printer = {};  ///< blank for the default one; another becomes the default for the job
    bool silent = false;       ///< without Acrobat's print dialog
};

/// Pages of a document, counted from 1; numbers below 1 stand for its first and its last one.
struct PageRange {
    std::int32_t first = 0;
    std::int32_t last = 0;
};

// Where a printer is named, the default one is put back after the job; after a failure it is not. Neither tests
// whether there is such a printer: where there is none, the default one prints.

/// Prints a PDF. Whether it has those pages is Acrobat's to say. Acrobat is exited, also after a failure.
/// Raises the missing-file error, the component's error when the PDF has a password and there is no sender, and
/// what Acrobat raises.
void PrintPDF(const session::Session& session, const PdfFile& file, const PrintSettings& settings,
              PageRange pages);

/// Prints the files of a folder whose names match a pattern, all of their pages, one after the other. A folder
/// without a match is no error. No Acrobat is started for it, and none exited. Raises 6 for a file of more than
/// 32,768 pages, and what Acrobat and the files raise.
void PrintPDFinDir(const session::Session& session, const std::string& strDirectory,
                   const std::string& strFiles, const PrintSettings& settings);

}  // namespace foliant::acrobat
