#pragma once

#include <string>

#include "automation/value.h"
#include "session/session.h"

namespace foliant::converters {

// Both create their own AutoCAD, open the drawing for reading only, and close it and quit AutoCAD before they
// return, also when they fail. Up to Acrobat 5 they plot to `strPDFWriter`, which is told its file through the
// registry and writes it at once, so that nobody answers a dialog, waits, or looks for a window. Later they
// plot to `PrinterName`, whatever was passed, and raise the component's error when the window sender is
// nowhere. Both raise the missing-file error for the drawing, and what driving AutoCAD and the files raises.

/// Plots one layout. `varLayout`, its name or number, is passed to AutoCAD as it is, also when it is missing.
void CreatePDFfromAutoCAD(session::Session& session, const std::string& strPDFFile,
                          const std::string& strDWGFile, const automation::Value& varLayout,
                          std::string strPDFWriter, bool blnCloseAcrobat);

/// Plots several layouts, each to a temporary PDF, and merges those. Temporary files are deleted on success
/// only. Raises 13 unless `varLayouts` is an array, 6 for more than 32767 layouts, 9 for negative indices.
void CreatePDFfromMultiAutoCAD(session::Session& session, const std::string& strPDFFile,
                               const std::string& strDWGFile, const automation::Value& varLayouts,
                               std::string strPDFWriter, bool blnCloseAcrobat);

}  // namespace foliant::converters
