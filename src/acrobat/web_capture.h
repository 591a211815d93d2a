#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace foliant::acrobat {

/// Makes a PDF of a web page, which Acrobat 6 or later fetches; window senders answer its dialogs. Where there
/// is no sender, the address is typed into the active window instead. An old output is deleted before the page
/// is fetched. Once the page's window is there, Acrobat gets `intSecsToWaitForPDF` seconds to finish it, 32 at
/// most (more raise 6), and is exited afterwards. A page of which Acrobat makes no valid document makes no PDF,
/// and is no error.
///
/// Raises the component's error for an older Acrobat, before anything is started, and when there is no window
/// after 120 seconds: Acrobat is exited then. After any other failure it is left as it is.
void CreatePDFfromWebPage(const session::Session& session, const std::string& strURL,
                          const std::string& strPDFFile, bool blnHideAcrobat,
                          std::int16_t intSecsToWaitForPDF);

}  // namespace foliant::acrobat
