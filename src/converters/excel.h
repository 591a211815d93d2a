#pragma once

#include <cstdint>
#include <string>

#include "automation/value.h"
#include "converters/sheet_setup.h"
#include "engines/distiller_job.h"
#include "session/session.h"

namespace foliant::converters {

/// A workbook and what it takes to open it.
struct Workbook {
    std::string path;
    std::string password;                    ///< passed to Excel as it is, also when empty
    std::string write_reservation_password;  ///< likewise
};

/// One range of one worksheet.
struct SheetJob {
    Workbook workbook;
    automation::Value worksheet;  ///< its name or number, passed to Excel as it is
    std::string range;            ///< "A1:F40", likewise
    SheetStyle style;
    bool landscape = false;
    std::int32_t first_page_number = 1;
};

/// Several of them. The lists run beside `worksheets` and are read at its indices.
struct SheetsJob {
    Workbook workbook;
    automation::Value worksheets;
    automation::Value ranges;
    SheetStyle style;
    automation::Value landscape;
    /// Read from index 0 on, wherever `worksheets` begins. Left out, every sheet begins with page 1.
    automation::Value first_page_numbers;
};

// Each of the five creates its own Excel, and closes the workbook unsaved and quits Excel before it returns,
// also when it fails. A blank `strDistiller` holds `PrinterName` afterwards. All raise the missing-file error
// for the workbook, and what driving Excel and the files raises. Those with several sheets raise 13 for a
// list that is no array, 9 for one that does not reach as far as `worksheets`, 6 for more than 32767 sheets.
// Temporary files are deleted on success only.

/// Prints to a temporary PostScript file and has Distiller convert it.
void CreatePDFfromExcel(session::Session& session, const std::string& strPDFFile, const SheetJob& job,
                        std::string& strDistiller, const engines::DistillerOptions& options);

/// Prints to the PDF printer, whose dialogs the window sender answers; on request closes the Acrobat window
/// that shows the PDF afterwards.
void CreatePDFfromExcel2(session::Session& session, const std::string& strPDFFile, const SheetJob& job,
                         std::string& strDistiller, bool blnCloseAcrobat);

/// Prints each sheet to a temporary PostScript file and has Distiller make one PDF of them, with its current
/// settings: there is no job-options file.
void CreatePDFfromMultiExcel(session::Session& session, const std::string& strPDFFile, const SheetsJob& job,
                             std::string& strDistiller, const engines::DistillerOptions& options);

/// Prints each sheet to the PDF printer and merges the PDFs. With `blnCloseAcrobat` each sheet waits for a
/// window of Acrobat that shows `strPDFFile`, which is not made yet: 15 seconds, and the windows of the
/// single PDFs stay open.
void CreatePDFfromMultiExcel2(session::Session& session, const std::string& strPDFFile, const SheetsJob& job,
                              std::string& strDistiller, bool blnCloseAcrobat);

/// Prints to a PostScript file.
void CreatePSfromExcel(session::Session& session, const std::string& strPSFile, const SheetJob& job,
                       std::string& strDistiller);

}  // namespace foliant::converters
