#include "acrobat/web_capture.h"

#include "acrobat/acrobat.h"
#include "acrobat/active_document.h"
#include "engines/acrobat_windows.h"
#include "engines/dialog_sender.h"
#include "session/acrobat_versions.h"
#include "session/errors.h"

namespace foliant::acrobat {

using session::Session;

namespace {

constexpr float longest_capture_seconds = 120;

/// Has the address typed into the capture's dialog, and its error dialogs dismissed where they come. Without
/// senders the keys wait in the queue for the dialog that will be active.
void answer_capture_dialogs(const Session& session, const std::string& address) {
    if (const auto folder = engines::locate_sender(session)) {
        engines::start_sender(session, *folder, {"create pdf from web page", "Edit", address, '0', '1'});
        engines::start_sender(session, *folder, {"error: nothing done", "Button", "", '0', '1'});
        engines::start_sender(session, *folder, {"there were errors", "Button", "", '0', '1'});
    } else {
        session.outside().windows.type_text(address);
        session.outside().windows.press_enter();
    }
}

void require_captured_page(const Session& session, Acrobat& acrobat, const std::string& address) {
    const std::string key = engines::caption_key_of_page(address);
    if (engines::wait_for_acrobat_window(session, key, longest_capture_seconds)) return;
    acrobat.application.call("Exit");
    acrobat.release();
    throw session::component_error("Unable to create PDF from web page.");
}

}  // namespace

void CreatePDFfromWebPage(const Session& session, const std::string& strURL, const std::string& strPDFFile,
                          bool blnHideAcrobat, std::int16_t intSecsToWaitForPDF) {
    if (session::acrobat_is_older_than_6(session))
        throw session::component_error("This function not compatible with Adobe Acrobat " +
                                       session.AcrobatVersion());
    Acrobat acrobat;
    session::with_error_trap(
        [&] {
            acrobat.application = new_application(session);
            if (!blnHideAcrobat) acrobat.application.call("Show");
            answer_capture_dialogs(session, strURL);
            session.remove_if_exists(strPDFFile);
            acrobat.application.call("MenuItemExecute", {"Web2PDF:OpnURL"});
            require_captured_page(session, acrobat, strURL);
            let_acrobat_finish(session, intSecsToWaitForPDF);
            save_active_document_and_exit(session, acrobat, strPDFFile);
        },
        [&] { acrobat.release(); });
}

}  // namespace foliant::acrobat
