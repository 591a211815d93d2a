#pragma once

#include <string>

#include "acrobat/open_document.h"
#include "automation/value.h"
#include "session/session.h"

namespace foliant::acrobat {

/// What counts as a hit, and where a search begins.
struct SearchOptions {
    bool case_sensitive = false;
    bool whole_words_only = false;
    bool from_first_page = false;  ///< otherwise behind the hit before
};

/// Has the viewer look for a text, and show it where it is found. Whether it was.
bool find_text(const automation::Value& viewer, const std::string& text, const SearchOptions& options);

/// Looks for a text from the first page on. When it is found, Acrobat stays open and is shown, with the hit
/// selected; otherwise it is exited. Raises the missing-file error, and for any other failure the component's
/// error "Can't open file …", which has left Acrobat as it is.
void FindTextInPDF(const session::Session& session, const PdfFile& file, const std::string& strText,
                   bool blnCaseSensitive, bool blnWholeWordsOnly);

}  // namespace foliant::acrobat
