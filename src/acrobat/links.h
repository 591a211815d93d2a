#pragma once

#include "acrobat/open_document.h"
#include "session/session.h"

namespace foliant::acrobat {

/// Makes links of the web addresses that are written in a PDF, by Acrobat's own command, whose dialogs window
/// senders answer, and saves the PDF in its place. Acrobat is exited. Raises the missing-file error, and for any
/// other failure, a missing sender as well, the component's error "Can't open file …", which has left Acrobat as
/// it is.
void CreateLinksInPDF(const session::Session& session, const PdfFile& file);

}  // namespace foliant::acrobat
