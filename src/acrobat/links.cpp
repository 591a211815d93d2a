#include "acrobat/links.h"

#include "acrobat/acrobat.h"
#include "acrobat/save_flags.h"
#include "engines/dialog_sender.h"
#include "session/errors.h"

namespace foliant::acrobat {

using session::Session;

namespace {

/// Presses the default button of a dialog that is to come. Each sender is looked for anew.
void confirm(const Session& session, std::string_view caption) {
    const std::string folder = engines::require_sender(session);
    engines::start_sender(session, folder, {caption, "Button", ""});
}

}  // namespace

void CreateLinksInPDF(const Session& session, const PdfFile& file) {
    session.require_file(file.path);
    Acrobat acrobat;
    session::with_error_trap_saying(
        cannot_open_file(file.path),
        [&] {
            acrobat.application = new_application(session);
            acrobat.document = new_document(session);
            open_document_and_viewer(session, acrobat, file);
            confirm(session, "create web links");
            confirm(session, "adobe acrobat");
            acrobat.application.call("MenuItemExecute", {"Weblink:CreateURLs"});
            acrobat.document.call("Save", {incremental_save, file.path});
            acrobat.close_both_and_exit();
        },
        [&] { acrobat.release(); });
}

}  // namespace foliant::acrobat
