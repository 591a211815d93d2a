#include "acrobat/open_document.h"

#include "automation/text.h"
#include "engines/dialog_sender.h"
#include "session/acrobat_versions.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

bool has_password(const PdfFile& file) {
    return !automation::trim_blanks(file.password).empty();
}

/// Opens the file by Acrobat's menu; its dialogs for the path and the password are answered by senders that
/// wait for them.
void open_by_dialogs(const Session& session, const Value& application, const PdfFile& file) {
    const std::string folder = engines::require_sender(session);
    engines::start_sender(session, folder, {"open", "Edit", file.path});
    engines::start_sender(session, folder, {"password", "Edit", file.password});
    application.call("MenuItemExecute", {"Open"});
}

void open_by_dialogs_in_new_viewer(const Session& session, Acrobat& acrobat, const PdfFile& file) {
    open_by_dialogs(session, acrobat.application, file);
    acrobat.viewer = new_viewer(session);
    acrobat.viewer.call("Open", {file.path, ""});
    acrobat.viewer = acrobat.application.call("GetActiveDoc");
    acrobat.document = acrobat.viewer.call("GetPDDoc");
}

std::string window_title(const Session& session, const std::string& path) {
    if (!session::acrobat_is_exactly_6_0(session)) return {};
    return std::string(automation::file_name_part(path, session.outside().files.separator()));
}

}  // namespace

void open_in_viewer(const Session& session, Acrobat& acrobat, const PdfFile& file) {
    if (has_password(file)) {
        open_by_dialogs(session, acrobat.application, file);
        acrobat.viewer = acrobat.application.call("GetActiveDoc");
    } else {
        acrobat.viewer.call("Open", {file.path, ""});
    }
    acrobat.document = acrobat.viewer.call("GetPDDoc");
}

void open_document(const Session& session, Acrobat& acrobat, const PdfFile& file) {
    if (has_password(file)) {
        open_by_dialogs_in_new_viewer(session, acrobat, file);
    } else {
        acrobat.document.call("Open", {file.path});
    }
}

void open_document_and_viewer(const Session& session, Acrobat& acrobat, const PdfFile& file) {
    if (has_password(file)) {
        open_by_dialogs_in_new_viewer(session, acrobat, file);
    } else {
        acrobat.document.call("Open", {file.path});
        acrobat.viewer = acrobat.document.call("OpenAVDoc", {window_title(session, file.path)});
    }
}

std::string cannot_open_file(const std::string& path) {
    return "Can't open file " + path + ".";
}

}  // namespace foliant::acrobat
