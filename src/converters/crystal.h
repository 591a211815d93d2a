#pragma once

#include <string>

#include "session/session.h"

namespace foliant::converters {

/// Has Crystal Reports print a report to the PDF printer, whose save dialog the window sender answers; on
/// request closes the Acrobat window that shows the PDF afterwards. A blank `strDistiller` holds `PrinterName`
/// afterwards. Raises the missing-file error for the report, the component's error when there is no sender,
/// and what driving Crystal Reports and the files raises.
void CreatePDFfromCrystalReport(session::Session& session, const std::string& strPDFFile,
                                const std::string& strCrystalReport, std::string& strDistiller,
                                bool blnCloseAcrobat);

}  // namespace foliant::converters
