#include "acrobat/view.h"

#include "acrobat/acrobat.h"
#include "acrobat/pages.h"
#include "automation/text.h"
#include "engines/dialog_sender.h"
#include "session/acrobat_versions.h"
#include "session/errors.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

/// Goes to a bookmark. Two objects are made for it, and the second one does it.
void go_to_bookmark(const Session& session, const Acrobat& acrobat, const std::string& title,
                    Value& bookmark) {
    bookmark = new_bookmark(session);
    if (automation::trim_blanks(title).empty()) return;
    bookmark = new_bookmark(session);
    bookmark.call("GetByTitle", {acrobat.document, title});
    bookmark.call("Perform", {acrobat.viewer});
}

/// Goes to a page by Acrobat's dialog, which another kind of control takes the number in since version 5.
void go_to_page(const Session& session, const Acrobat& acrobat, std::int32_t page) {
    if (page < 1 || page > page_count(acrobat.document)) return;
    const char* control = session::acrobat_is_newer_than_5(session) ? "RichEdit20W" : "Edit";
    const std::string folder = engines::require_sender(session);
    engines::start_sender(session, folder, {"go to page", control, std::to_string(page)});
    acrobat.application.call("MenuItemExecute", {"GoToPage"});
}

void read_aloud(const Session& session, const Acrobat& acrobat, std::int32_t what) {
    if (!session::acrobat_is_newer_than_5(session)) return;
    if (what == 1) acrobat.application.call("MenuItemExecute", {"ADBE:ReadAloudStart"});
    if (what == 2) acrobat.application.call("MenuItemExecute", {"ADBE:ReadAloudToEnd"});
}

}  // namespace

void OpenPDF(const Session& session, const PdfFile& file, const ViewSettings& settings) {
    session.require_file(file.path);
    Acrobat acrobat;
    Value bookmark;
    const auto leave_to_user = [&]() noexcept {
        acrobat.viewer = {};
        acrobat.document = {};
        bookmark = {};
        acrobat.application = {};
    };
    session::with_error_trap(
        [&] {
            acrobat.application = new_application(session);
            acrobat.document = new_document(session);
            acrobat.application.call("Show");
            open_document_and_viewer(session, acrobat, file);
            go_to_bookmark(session, acrobat, settings.bookmark, bookmark);
            go_to_page(session, acrobat, settings.page);
            read_aloud(session, acrobat, settings.read_aloud);
            leave_to_user();
        },
        leave_to_user);
}

}  // namespace foliant::acrobat
