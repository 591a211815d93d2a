#include "converters/visio.h"

#include "engines/acrobat_windows.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::converters {

using engines::HostProgram;
using session::Session;

namespace {

/// Visio's document is let go of only after the application has quit.
void close_and_quit(HostProgram& visio) {
    visio.document.call("Close");
    visio.application.call("Quit");
    visio.document = {};
    visio.application = {};
}

}  // namespace

void CreatePDFfromVisio(Session& session, const std::string& strPDFFile, const std::string& strVisioFile,
                        std::string& strDistiller, bool blnCloseAcrobat) {
    session.require_file(strVisioFile);
    HostProgram visio;
    session::with_error_trap(
        [&] {
            visio.application = session.outside().servers.create(registered::visio);
            visio.document = visio.application.get("Documents").call("Open", {strVisioFile});
            engines::choose_printer(session, strDistiller);
            session.remove_if_exists(strPDFFile);
            visio.document.set("Printer", strDistiller);
            engines::answer_printer_dialogs(session, strPDFFile);
            visio.document.call("Print");
            engines::wait_for_file(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            close_and_quit(visio);
        },
        [&] { visio.let_go(); });
}

}  // namespace foliant::converters
