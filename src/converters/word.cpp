#include "converters/word.h"

#include "automation/text.h"
#include "automation/value.h"
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

constexpr std::int16_t print_range_of_pages = 4;

void open_document(const Session& session, const WordJob& job, HostProgram& word) {
    word.application = session.outside().servers.create(registered::word);
    word.document = word.application.get("Documents")
                        .call("Open", {job.document, named("PasswordDocument", job.password),
                                       named("WritePasswordDocument", job.write_password)});
    silence_alerts(word);
    // A document whose page setup cannot be changed is converted all the same.
    session::ignoring_errors([&] { set_orientation(word, job.landscape); });
    add_page_numbers(word, job.page_numbers);
}

void print_document(const HostProgram& word, const WordJob& job, Arguments arguments) {
    if (!automation::trim_blanks(job.pages).empty()) {
        arguments.push_back(named("Range", print_range_of_pages));
        arguments.push_back(named("Pages", job.pages));
    }
    word.document.call("PrintOut", arguments);
}

void restore_and_quit(const std::string& former_printer, HostProgram& word) {
    restore_printer_and_alerts(word, former_printer);
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
            const std::string former_printer = choose_active_printer(session, word, job.printer);
            const std::string postscript = session.temporary_file(".ps");
            session.remove_if_exists(postscript);
            print_document(word, job, {to_file(postscript)});
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
            const std::string former_printer = choose_active_printer(session, word, job.printer);
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
            const std::string former_printer = choose_active_printer(session, word, job.printer);
            session.remove_if_exists(strPSFile);
            print_document(word, job, {to_file(strPSFile)});
            engines::wait_for_file(session, strPSFile);
            restore_and_quit(former_printer, word);
        },
        [&] { word.let_go({false}); });
}

}  // namespace foliant::converters
