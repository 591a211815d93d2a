#pragma once

#include <string>

#include "session/session.h"

namespace foliant::converters {

/// Prints a whole Visio drawing to the PDF printer, whose dialogs the window sender answers; on request closes
/// the Acrobat window that shows the PDF afterwards. Creates its own Visio, and closes the drawing and quits
/// Visio before it returns, also when it fails. A blank `strDistiller` holds `PrinterName` afterwards. Raises
/// the missing-file error for the drawing, and what driving Visio and the files raises.
void CreatePDFfromVisio(session::Session& session, const std::string& strPDFFile,
                        const std::string& strVisioFile, std::string& strDistiller, bool blnCloseAcrobat);

}  // namespace foliant::converters
