#include "acrobat/bookmarks.h"

#include "acrobat/acrobat.h"
#include "acrobat/save_flags.h"
#include "automation/coerce.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

/// The title that Acrobat gives a new bookmark.
constexpr const char* untitled = "Untitled";

/// The time in which Acrobat comes to show the hit, which the new bookmark will point to.
constexpr std::uint32_t until_hit_is_shown = 1000;

/// A document flag that is set before its bookmarks change.
constexpr std::int16_t bookmarks_will_change = 256;

/// Opens the PDF and returns the object by which its bookmarks are renamed.
Value open_for_bookmarks(const Session& session, Acrobat& acrobat, const PdfFile& file) {
    acrobat.application = new_application(session);
    acrobat.document = new_document(session);
    open_document_and_viewer(session, acrobat, file);
    Value bookmark = new_bookmark(session);
    acrobat.document.call("SetFlags", {bookmarks_will_change});
    return bookmark;
}

/// Puts a bookmark where the title is found. Whether it was.
bool mark(const Session& session, const Acrobat& acrobat, const Value& bookmark, const std::string& title,
          const SearchOptions& options) {
    if (!find_text(acrobat.viewer, title, options)) return false;
    session.outside().clock.settle(until_hit_is_shown);
    acrobat.application.call("MenuItemExecute", {"NewBookmark"});
    bookmark.call("GetByTitle", {acrobat.document, untitled});
    bookmark.call("SetTitle", {title});
    return true;
}

}  // namespace

void CreateBookmarksInPDF(const Session& session, const PdfFile& file, const Value& varBookmarkTitles,
                          const SearchOptions& options) {
    session.require_file(file.path);
    Acrobat acrobat;
    session::with_error_trap_saying(
        cannot_open_file(file.path),
        [&] {
            const Value bookmark = open_for_bookmarks(session, acrobat, file);
            session::for_each_item<std::int32_t>(varBookmarkTitles, [&](const Value& title) {
                mark(session, acrobat, bookmark, automation::to_text(title), options);
            });
            acrobat.document.call("Save", {incremental_save, file.path});
            acrobat.close_both_and_exit();
        },
        [&] { acrobat.release(); });
}

void CreateBookmarkInPDF(const Session& session, const PdfFile& file, const std::string& strBookmarkTitle,
                         const SearchOptions& options) {
    session.require_file(file.path);
    Acrobat acrobat;
    session::with_error_trap_saying(
        "Can't open file" + file.path + ".",
        [&] {
            const Value bookmark = open_for_bookmarks(session, acrobat, file);
            if (mark(session, acrobat, bookmark, strBookmarkTitle, options))
                acrobat.document.call("Save", {incremental_save, file.path});
            acrobat.close_both_and_exit();
        },
        [&] { acrobat.release(); });
}

}  // namespace foliant::acrobat
