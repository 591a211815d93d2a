#pragma once

#include <string>

#include "automation/value.h"
#include "session/session.h"

namespace foliant::converters {

// Both members print reports of a database with an Access of their own, and close the database and quit
// Access before they return, also when they fail. What they do depends on Acrobat's version: PDFWriter is
// told its file through the registry below 6; above 5 the printer is `PrinterName`, whatever the caller
// wished for, its save dialog is answered, and only then the PDF is waited for. Both raise the missing-file
// error for the database, the component's error when the dialog has to be answered and there is no sender,
// and what driving Access and the files raises.

/// One report of a database, and which of its records it shows.
struct AccessReport {
    std::string database;
    std::string password;  ///< passed to Access as it is, also when empty; so are these two
    std::string name;
    std::string filter;           ///< name of a query of the database
    std::string where_condition;  ///< of SQL, without WHERE
};

/// Prints a report to a PDF. A printer that Access does not have leaves it with its own.
void CreatePDFfromAccessReport(session::Session& session, const std::string& strPDFFile,
                               const AccessReport& report, std::string strPDFWriter, bool blnCloseAcrobat);

/// Prints several reports, each to a temporary PDF, and merges these in the order of `varReportNames`. The
/// temporary files stay when it fails. Raises the component's error when there is no report, 13 unless
/// `varReportNames` is an array, 6 for more than 32767 names.
void CreatePDFfromMultiAccessReport(session::Session& session, const std::string& strPDFFile,
                                    const std::string& strDatabase, const automation::Value& varReportNames,
                                    const std::string& strPassword, std::string strPDFWriter,
                                    bool blnCloseAcrobat);

}  // namespace foliant::converters
