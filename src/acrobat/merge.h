#pragma once

#include <string>

#include "automation/value.h"
#include "session/session.h"

namespace foliant::acrobat {

// Both copy the bookmarks of what they merge, and write over an old output, which is deleted first. Pages are
// counted in 16 bits: an input of more than 32,767 pages raises 6, and so does a result of more than 32,768
// before its last input. A file that Acrobat cannot open fails when its pages are asked for.

/// Merges the PDFs that a list names, in its order; those that do not exist are passed over. When none does,
/// the output is an empty document. Raises the component's error when Acrobat makes no new document, 13 when
/// the list is no array, 6 for more than 32,767 inputs, and what Acrobat and the files raise.
void CreatePDFfromMultiPDF(const session::Session& session, const std::string& strPDFFile,
                           const automation::Value& varPDFFiles);

/// Merges the PDFs of a folder whose names match a pattern, in the order in which the folder lists them. The
/// first one is opened and gets the others behind it. When none matches, nothing is written, and that is no
/// error. Raises what Acrobat and the files raise.
void CreatePDFfromMultiPDFinDir(const session::Session& session, const std::string& strPDFFile,
                                const std::string& strDirectory, const std::string& strFiles);

}  // namespace foliant::acrobat
