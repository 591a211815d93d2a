#include "acrobat/password.h"

#include "acrobat/acrobat.h"
#include "acrobat/open_document.h"
#include "engines/dialog_sender.h"
#include "session/errors.h"

namespace foliant::acrobat {

using session::Session;

namespace {

/// Answers the dialogs of one security command: the option that asks for a password, the password, its
/// confirmation, and the notice at the end. "{LM}", "^1" and "{LME}" are the sender's own language.
void answer_security_dialogs(const Session& session, const std::string& folder, const std::string& password) {
    engines::start_sender(session, folder, {"password security - settings", "Button", "{LM}", '0', '1'});
    engines::start_sender(session, folder,
                          {"password security - settings", "Edit", password + "^1", '0', '1'});
    engines::start_sender(session, folder,
                          {"adobe acrobat - confirm open document password", "Edit", password, '0', '1'});
    engines::start_sender(session, folder, {"adobe acrobat", "Button", "{LME}", '0', '1'});
}

}  // namespace

void SetOpenPassword(const Session& session, const std::string& strPDFFile,
                     const std::string& strOpenPassword) {
    session.require_file(strPDFFile);
    Acrobat acrobat;
    session::with_error_trap_saying(
        cannot_open_file(strPDFFile),
        [&] {
            const std::string system = engines::system_folder(session);
            acrobat.application = new_application(session);
            acrobat.document = new_document(session);
            open_document_and_viewer(session, acrobat, {.path = strPDFFile});
            const std::string folder = engines::require_sender(session, system);
            answer_security_dialogs(session, folder, strOpenPassword);
            acrobat.application.call("MenuItemExecute", {"SecureApplyPwdSecurity"});
            acrobat.application.call("MenuItemExecute", {"Save"});
            acrobat.close_both_and_exit();
        },
        [&] { acrobat.release(); });
}

}  // namespace foliant::acrobat
