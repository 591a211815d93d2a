#include "acrobat/find.h"

#include "acrobat/acrobat.h"
#include "automation/coerce.h"
#include "session/errors.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

bool find_text(const Value& viewer, const std::string& text, const SearchOptions& options) {
    return automation::to_bool(viewer.call(
        "FindText", {text, options.case_sensitive, options.whole_words_only, options.from_first_page}));
}

void FindTextInPDF(const Session& session, const PdfFile& file, const std::string& strText,
                   bool blnCaseSensitive, bool blnWholeWordsOnly) {
    session.require_file(file.path);
    Acrobat acrobat;
    session::with_error_trap_saying(
        cannot_open_file(file.path),
        [&] {
            acrobat.application = new_application(session);
            acrobat.document = new_document(session);
            open_document_and_viewer(session, acrobat, file);
            const bool found = find_text(acrobat.viewer, strText,
                                         {.case_sensitive = blnCaseSensitive,
                                          .whole_words_only = blnWholeWordsOnly,
                                          .from_first_page = true});
            if (found) {
                acrobat.application.call("Show");
                acrobat.document.call("Close");
                acrobat.release();
            } else {
                acrobat.close_both_and_exit();
            }
        },
        [&] { acrobat.release(); });
}

}  // namespace foliant::acrobat
