#include "converters/powerpoint.h"

#include "automation/coerce.h"
#include "automation/text.h"
#include "engines/acrobat_windows.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::converters {

using automation::Arguments;
using automation::named;
using engines::HostProgram;
using session::Session;

namespace {

constexpr std::int16_t visible = -1;
constexpr std::int16_t minimised_window = 2;
constexpr std::int16_t horizontal_slides = 1;
constexpr std::int16_t vertical_slides = 2;

void open_presentation(const Session& session, const SlidesJob& job, HostProgram& powerpoint) {
    powerpoint.application = session.outside().servers.create(registered::powerpoint);
    powerpoint.application.set("Visible", visible);
    powerpoint.application.set("WindowState", minimised_window);
    powerpoint.document = powerpoint.application.get("Presentations").call("Open", {job.presentation});
    powerpoint.document.get("PageSetup")
        .set("SlideOrientation", job.horizontal ? horizontal_slides : vertical_slides);
}

/// Points the presentation at the printer of the job, whose name stays the caller's. Returns the printer that
/// it had.
std::string choose_active_printer(const Session& session, const SlidesJob& job,
                                  const HostProgram& powerpoint) {
    std::string former = automation::to_text(powerpoint.document.get("PrintOptions").get("ActivePrinter"));
    const bool blank = automation::trim_blanks(job.printer).empty();
    powerpoint.document.get("PrintOptions").set("ActivePrinter", blank ? session.PrinterName() : job.printer);
    return former;
}

void print_slides(const HostProgram& powerpoint, const SlidesJob& job, const Arguments& to_file = {}) {
    Arguments arguments{named("From", job.first_slide), named("To", job.last_slide)};
    arguments.insert(arguments.end(), to_file.begin(), to_file.end());
    powerpoint.document.call("PrintOut", arguments);
}

void restore_and_quit(const std::string& former_printer, HostProgram& powerpoint) {
    powerpoint.document.get("PrintOptions").set("ActivePrinter", former_printer);
    powerpoint.close_and_quit();
}

}  // namespace

void CreatePDFfromPowerPoint(Session& session, const std::string& strPDFFile, const SlidesJob& job,
                             const engines::DistillerOptions& options) {
    session.require_file(job.presentation);
    HostProgram powerpoint;
    engines::DistillerJob distiller(session);
    session::with_error_trap(
        [&] {
            open_presentation(session, job, powerpoint);
            const std::string former_printer = choose_active_printer(session, job, powerpoint);
            const std::string postscript = session.temporary_file(".ps");
            session.remove_if_exists(postscript);
            print_slides(powerpoint, job, {named("PrintToFile", postscript)});
            engines::wait_for_file(session, postscript);
            restore_and_quit(former_printer, powerpoint);
            session.remove_if_exists(strPDFFile);
            distiller.run(postscript, strPDFFile, options);
            session.outside().files.remove(postscript);
        },
        [&] {
            powerpoint.let_go();
            distiller.release();
        });
}

void CreatePDFfromPowerPoint2(Session& session, const std::string& strPDFFile, const SlidesJob& job,
                              bool blnCloseAcrobat) {
    session.require_file(job.presentation);
    HostProgram powerpoint;
    session::with_error_trap(
        [&] {
            open_presentation(session, job, powerpoint);
            const std::string former_printer = choose_active_printer(session, job, powerpoint);
            session.remove_if_exists(strPDFFile);
            engines::answer_printer_dialogs(session, strPDFFile);
            print_slides(powerpoint, job);
            engines::wait_for_file(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            restore_and_quit(former_printer, powerpoint);
        },
        [&] { powerpoint.let_go(); });
}

void CreatePSfromPowerPoint(Session& session, const std::string& strPSFile, const SlidesJob& job) {
    session.require_file(job.presentation);
    HostProgram powerpoint;
    session::with_error_trap(
        [&] {
            open_presentation(session, job, powerpoint);
            const std::string former_printer = choose_active_printer(session, job, powerpoint);
            session.remove_if_exists(strPSFile);
            print_slides(powerpoint, job, {named("PrintToFile", strPSFile)});
            engines::wait_for_file(session, strPSFile);
            restore_and_quit(former_printer, powerpoint);
        },
        [&] { powerpoint.let_go(); });
}

}  // namespace foliant::converters
