#include "converters/crystal.h"

#include "engines/acrobat_windows.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::converters {

using automation::Value;
using session::Session;

namespace {

constexpr bool without_prompt = false;
constexpr std::int16_t one_copy = 1;

}  // namespace

void CreatePDFfromCrystalReport(Session& session, const std::string& strPDFFile,
                                const std::string& strCrystalReport, std::string& strDistiller,
                                bool blnCloseAcrobat) {
    session.require_file(strCrystalReport);
    Value crystal;
    Value report;
    session::with_error_trap(
        [&] {
            crystal = session.outside().servers.create(registered::crystal_reports);
            report = crystal.call("OpenReport", {strCrystalReport});
            engines::choose_printer(session, strDistiller);
            session.remove_if_exists(strPDFFile);
            report.call("SelectPrinter", {"", strDistiller, ""});
            engines::answer_save_dialog(session, strPDFFile);
            report.call("PrintOut", {without_prompt, one_copy});
            engines::wait_for_file(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            report = {};
            engines::end_with(crystal, "CanClose");
        },
        [&] {
            report = {};
            engines::end_with_if_held(crystal, "CanClose");
        });
}

}  // namespace foliant::converters
