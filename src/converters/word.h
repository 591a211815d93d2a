#pragma once

#include <string>

#include "converters/word_steps.h"
#include "engines/distiller_job.h"
#include "session/session.h"

namespace foliant::converters {

/// What the members of the Word family share: the document and how it is set up before it is printed.
struct WordJob {
    std::string document;        ///< path of the document
    std::string password;        ///< passed to Word as it is, also when empty
    std::string write_password;  ///< likewise
    std::string pages;           ///< Word's page-range expression, "1-3,5"; blank means the whole document
    bool landscape = false;      ///< false writes portrait: the document's own orientation never stays
    PageNumbers page_numbers;
    std::string printer;  ///< the printer that Word prints to; blank means `PrinterName`
};

// Each of the three creates its own Word, and closes the document unsaved and quits Word before it returns,
// also when it fails. All raise the missing-file error for the document, and what driving Word and the files
// raises.

/// Prints to a temporary PostScript file and has Distiller convert it. The temporary file is deleted on
/// success only.
void CreatePDFfromWord(session::Session& session, const std::string& strPDFFile, const WordJob& job,
                       const engines::DistillerOptions& options);

/// Prints to the PDF printer, whose dialogs the window sender answers; on request closes the Acrobat window
/// that shows the PDF afterwards.
void CreatePDFfromWord2(session::Session& session, const std::string& strPDFFile, const WordJob& job,
                        bool blnCloseAcrobat);

/// Prints to a PostScript file.
void CreatePSfromWord(session::Session& session, const std::string& strPSFile, const WordJob& job);

}  // namespace foliant::converters
