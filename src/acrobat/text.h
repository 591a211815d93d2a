#pragma once

#include <string>

#include "acrobat/open_document.h"
#include "session/session.h"

namespace foliant::acrobat {

/// Writes the words of a PDF into a text file, in place of what stood there: a line for each line of text, and at
/// the end of each page one for what follows its last line end, usually nothing. With `blnDoubleSpace` every
/// line of text, and the end of every page, is followed by an empty line.
///
/// Whether the PDF exists is not tested. After a failure the text file may hold what was written so far,
/// where the system keeps such files (see platform::TextFile); Acrobat is exited in any case. Raises the
/// component's error when the PDF has a password and there is no sender, and what Acrobat and the file raise.
void CreateTextfileFromPDF(const session::Session& session, const PdfFile& file,
                           const std::string& strTextfile, bool blnDoubleSpace);

}  // namespace foliant::acrobat
