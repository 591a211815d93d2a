#include "converters/pdfmaker.h"

#include "acrobat/acrobat.h"
#include "acrobat/active_document.h"
#include "engines/acrobat_windows.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::converters {

using automation::Value;
using session::Session;

void CreatePDF(Session& session, const std::string& strSourceFile, const std::string& strPDFFile,
               std::int16_t intSecsToWaitForPDF) {
    session.require_file(strSourceFile);
    Value pdfmaker;
    acrobat::Acrobat acrobat;
    session::with_error_trap(
        [&] {
            pdfmaker = session.outside().servers.create(registered::pdfmaker);
            const std::string caption_key =
                engines::caption_key_of_file(strSourceFile, session.outside().files.separator());
            session.remove_if_exists(strPDFFile);
            pdfmaker.call("LaunchDocument", {strSourceFile, std::int16_t{0}});
            engines::wait_for_acrobat_window(session, caption_key);
            acrobat::let_acrobat_finish(session, intSecsToWaitForPDF);
            acrobat.application = acrobat::new_application(session);
            acrobat::save_active_document_and_exit(session, acrobat, strPDFFile);
        },
        // Whatever failed, Acrobat and its document stay with the user.
        [] {});
}

}  // namespace foliant::converters
