#include "converters/text_file.h"

#include "automation/text.h"
#include "automation/value.h"
#include "engines/acrobat_windows.h"
#include "engines/default_printer.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::converters {

using automation::Value;
using engines::HostProgram;
using session::Session;

namespace {

Value content_font(const HostProgram& word) {
    return word.document.get("Content").get("Font");
}

/// Black is 0 and is never written: the text then keeps the colour that Word gives it.
void set_font(const HostProgram& word, const TextFont& wished) {
    const Value font = content_font(word);
    const std::string name(automation::trim_blanks(wished.name));
    if (!name.empty()) font.set("Name", name);
    font.set("Bold", wished.bold);
    font.set("Size", wished.size);
    if (wished.color > 0) font.set("Color", wished.color);
    font.set("Italic", wished.italic);
    font.set("Underline", wished.underline);
}

void set_margin(const HostProgram& word, const char* margin, float points) {
    if (points > 0) word.document.get("PageSetup").set(margin, points);
}

void set_margins(const HostProgram& word, const TextMargins& margins) {
    set_margin(word, "TopMargin", margins.top);
    set_margin(word, "LeftMargin", margins.left);
    set_margin(word, "RightMargin", margins.right);
    set_margin(word, "BottomMargin", margins.bottom);
}

/// Unlike a Word document, a text whose pages cannot be turned is a failure, and alerts stay on until the text
/// is set up.
void open_text(const Session& session, const TextFileJob& job, HostProgram& word) {
    word.application = session.outside().servers.create(registered::word);
    word.document = word.application.get("Documents").call("Open", {job.file});
    set_orientation(word, job.landscape);
    set_font(word, job.font);
    add_page_numbers(word, job.page_numbers);
    set_margins(word, job.margins);
    silence_alerts(word);
}

void restore_and_quit(const std::string& former_printer, HostProgram& word) {
    restore_printer_and_alerts(word, former_printer);
    content_font(word).call("Reset");
    word.close_and_quit({false});
}

}  // namespace

void CreatePDFfromTextFile(Session& session, const std::string& strPDFFile, const TextFileJob& job,
                           const engines::DistillerOptions& options) {
    session.require_file(job.file);
    HostProgram word;
    engines::DistillerJob distiller(session);
    session::with_error_trap(
        [&] {
            open_text(session, job, word);
            const std::string former_printer = choose_active_printer(session, word, job.printer);
            const std::string postscript = session.temporary_file(".ps");
            session.remove_if_exists(postscript);
            word.document.call("PrintOut", {to_file(postscript)});
            engines::wait_for_file(session, postscript);
            restore_and_quit(former_printer, word);
            session.remove_if_exists(strPDFFile);
            distiller.run(postscript, strPDFFile, options);
            session.outside().files.remove(postscript);
        },
        [&] {
            word.let_go({false});
            distiller.release();
        });
}

void CreatePDFfromTextFile2(Session& session, const std::string& strPDFFile, const TextFileJob& job,
                            bool blnCloseAcrobat) {
    session.require_file(job.file);
    HostProgram word;
    session::with_error_trap(
        [&] {
            open_text(session, job, word);
            const std::string former_printer = choose_active_printer(session, word, job.printer);
            session.remove_if_exists(strPDFFile);
            engines::answer_printer_dialogs(session, strPDFFile);
            word.document.call("PrintOut");
            // At once: only this member's siblings give Word its two seconds first.
            engines::wait_until_complete(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            restore_and_quit(former_printer, word);
        },
        [&] { word.let_go({false}); });
}

void CreatePSfromTextFile(Session& session, const std::string& strPSFile, const TextFileJob& job) {
    session.require_file(job.file);
    HostProgram word;
    session::with_error_trap(
        [&] {
            open_text(session, job, word);
            const std::string former_printer = choose_active_printer(session, word, job.printer);
            session.remove_if_exists(strPSFile);
            word.document.call("PrintOut", {to_file(strPSFile)});
            engines::wait_for_file(session, strPSFile);
            restore_and_quit(former_printer, word);
        },
        [&] { word.let_go({false}); });
}

void CreatePDFfromTextFile3(Session& session, const std::string& strPDFFile, const std::string& strTextfile,
                            const std::string& strDistiller, bool blnCloseAcrobat) {
    session.require_file(strTextfile);
    engines::PrinterSwitch default_printer(session);
    session::with_error_trap(
        [&] {
            const bool blank = automation::trim_blanks(strDistiller).empty();
            default_printer.switch_to(blank ? session.PrinterName() : strDistiller);
            session.remove_if_exists(strPDFFile);
            engines::answer_printer_dialogs(session, strPDFFile);
            session.outside().programs.start("notepad.exe /p \"" + strTextfile + "\"",
                                             platform::WindowStyle::hidden);
            engines::wait_until_complete(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            default_printer.restore();
        },
        [&] { default_printer.restore(); });
}

}  // namespace foliant::converters
