#pragma once

#include <string>

#include "acrobat/find.h"
#include "acrobat/open_document.h"
#include "automation/value.h"
#include "session/session.h"

namespace foliant::acrobat {

// Both look for texts in a PDF, put a bookmark with that title where they find one, and save the PDF in its
// place. Acrobat is exited. They raise the missing-file error, and for any other failure the component's error
// with one sentence, which has left Acrobat as it is.

/// A bookmark for each title of a list that is found; the others get none. The PDF is saved in any case. Any
/// failure is "Can't open file …".
void CreateBookmarksInPDF(const session::Session& session, const PdfFile& file,
                          const automation::Value& varBookmarkTitles, const SearchOptions& options);

/// A bookmark for one title. When it is not found the PDF is not saved. Any failure is "Can't open file…", with
/// no blank before the path: callers compare this text.
void CreateBookmarkInPDF(const session::Session& session, const PdfFile& file,
                         const std::string& strBookmarkTitle, const SearchOptions& options);

}  // namespace foliant::acrobat
