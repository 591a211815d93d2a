#include "converters/word.h"

#include "automation/coerce.h"
#include "automation/text.h"
#include "automation/value.h"
#include "engines/acrobat_windows.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "session/errors.h"

namespace foliant::converters {

using automation::Arguments;
using automation::named;
using automation::trim_blanks;
using automation::Value;
using engines::HostProgram;
using session::Session;

namespace {

constexpr std::int16_t alerts_none = 0;
constexpr std::int16_t alerts_all = -1;
constexpr std::int16_t first_section = 1;
constexpr std::int16_t primary = 1;
constexpr std::int16_t print_range_of_pages = 4;

void set_orientation(const Value& document, bool landscape) {
    // A document whose page setup cannot be changed is converted all the same.
    session::ignoring_errors(
        [&] { document.get("PageSetup").set("Orientation", static_cast<std::int16_t>(landscape ? 1 : 0)); });
}

std::int16_t word_alignment(std::int32_t alignment) noexcept {
    return static_cast<std::int16_t>(alignment == 0 || alignment == 2 ? alignment : 1);
}

void add_page_number(const Value& document, const char* headers_or_footers, const WordJob& job) {
    document.get("Sections", {first_section})
        .get(headers_or_footers, {primary})
        .get("PageNumbers")
        .call("Add", {named("PageNumberAlignment", word_alignment(job.number_alignment)),
                      named("FirstPage", job.number_on_first_page)});
}

void open_document(const Session& session, const WordJob& job, HostProgram& word) {
    word.application = session.outside().servers.create("Word.Application");
    word.document = word.application.get("Documents")
                        .call("Open", {job.document, named("PasswordDocument", job.password),
                                       named("WritePasswordDocument", job.write_password)});
    word.application.set("DisplayAlerts", alerts_none);
    set_orientation(word.document, job.landscape);
    if (job.number_in_footer) add_page_number(word.document, "Footers", job);
    if (job.number_in_header) add_page_number(word.document, "Headers", job);
}

/// Points Word, and only Word, at the printer; returns the printer that it had.
std::string choose_active_printer(const Session& session, const WordJob& job, const HostProgram& word) {
    std::string former = automation::to_text(word.application.get("ActivePrinter"));
    const bool blank = trim_blanks(job.printer).empty();
    word.application.set("ActivePrinter", blank ? session.PrinterName() : job.printer);
    return former;
}

void print_document(const HostProgram& word, const WordJob& job, Arguments arguments) {
    if (!trim_blanks(job.pages).empty()) {
        arguments.push_back(named("Range", print_range_of_pages));
        arguments.push_back(named("Pages", job.pages));
    }
    word.document.call("PrintOut", arguments);
}

void restore_and_quit(const std::string& former_printer, HostProgram& word) {
    word.application.set("ActivePrinter", former_printer);
    word.application.set("DisplayAlerts", alerts_all);
    word.close_and_quit({false});
}

}  // namespace

void CreatePDFfromWord(Session& session, const std::string& strPDFFile, const WordJob& job,
                       const engines::DistillerOptions& options) {
    session.require_file(job.document);
    HostProgram word;
    engines::DistillerJob distiller(session);
    session::with_error_trap(
        [&] {
            open_document(session, job, word);
            const std::string former_printer = choose_active_printer(session, job, word);
            const std::string postscript = session.temporary_file(".ps");
            session.remove_if_exists(postscript);
            print_document(word, job, {named("Outputfilename", postscript)});
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

void CreatePDFfromWord2(Session& session, const std::string& strPDFFile, const WordJob& job,
                        bool blnCloseAcrobat) {
    session.require_file(job.document);
    HostProgram word;
    session::with_error_trap(
        [&] {
            open_document(session, job, word);
            const std::string former_printer = choose_active_printer(session, job, word);
            session.remove_if_exists(strPDFFile);
            engines::answer_printer_dialogs(session, strPDFFile);
            print_document(word, job, {});
            engines::wait_for_file(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            restore_and_quit(former_printer, word);
        },
        [&] { word.let_go({false}); });
}

void CreatePSfromWord(Session& session, const std::string& strPSFile, const WordJob& job) {
    session.require_file(job.document);
    HostProgram word;
    session::with_error_trap(
        [&] {
            open_document(session, job, word);
            const std::string former_printer = choose_active_printer(session, job, word);
            session.remove_if_exists(strPSFile);
            print_document(word, job, {named("Outputfilename", strPSFile)});
            engines::wait_for_file(session, strPSFile);
            restore_and_quit(former_printer, word);
        },
        [&] { word.let_go({false}); });
}

}  // namespace foliant::converters
