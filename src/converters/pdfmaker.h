#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace foliant::converters {

/// Has PDFMaker convert any document that it can open, waits for the window in which Acrobat shows the result,
/// gives Acrobat `intSecsToWaitForPDF` seconds to finish, saves what it shows and exits it. A document that
/// Acrobat does not take for valid gives no PDF and no error. After a failure Acrobat stays as it is. Raises
/// the missing-file error for the source, 6 for more than 32 seconds, and what PDFMaker and Acrobat raise.
void CreatePDF(session::Session& session, const std::string& strSourceFile, const std::string& strPDFFile,
               std::int16_t intSecsToWaitForPDF);

}  // namespace foliant::converters
