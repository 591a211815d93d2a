#include "converters/access.h"

#include "acrobat/merge.h"
#include "automation/coerce.h"
#include "automation/object.h"
#include "automation/text.h"
#include "engines/acrobat_windows.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/acrobat_versions.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::converters {

using automation::Arguments;
using automation::named;
using automation::Value;
using session::Session;

namespace {

constexpr std::int16_t view_print = 0;
constexpr std::int16_t window_hidden = 1;
constexpr std::int16_t object_type_report = 3;
constexpr std::int16_t save_nothing = 2;

/// The first printer of that name; where there is none, Access keeps the one it has.
void choose_printer(const Session& session, const Value& access, const std::string& name) {
    const std::string wanted = automation::to_lower(name);
    const auto printers = access.get("Printers").enumerate();
    while (const auto printer = printers->next()) {
        session.outside().clock.pump_messages();
        if (automation::to_lower(automation::to_text(printer->get("DeviceName"))) != wanted) continue;
        access.set_reference("Printer", *printer);
        return;
    }
}

void open_database(const Session& session, Value& access, const std::string& database,
                   const std::string& password, std::string& strPDFWriter) {
    access = session.outside().servers.create(registered::access);
    engines::override_pdf_writer(session, strPDFWriter);
    choose_printer(session, access, strPDFWriter);
    access.call("OpenCurrentDatabase", {named("filepath", database), named("bstrPassword", password)});
}

/// Everything from telling the printer its file to the finished PDF. `opening` are the arguments with which
/// Access opens, and so prints, the report.
void print_report(const Session& session, const Value& access, const std::string& report,
                  const Arguments& opening, const std::string& target, bool close_acrobat) {
    if (session::acrobat_is_older_than_6(session)) engines::write_pdf_writer_target(session, target);
    session.remove_if_exists(target);
    if (session::acrobat_is_newer_than_5(session)) engines::answer_save_dialog(session, target);
    access.get("DoCmd").call("OpenReport", opening);
    access.get("DoCmd").call("Close", {object_type_report, report, save_nothing});
    engines::let_host_start_writing(session);
    if (session::acrobat_is_5_or_older(session)) return;
    engines::wait_until_complete(session, target);
    if (close_acrobat) engines::close_acrobat_window(session, target);
}

/// A list of no reports would end as an empty PDF.
void require_reports(const Value& names) {
    if (session::array_of(names)->items.empty())
        throw session::component_error("There is no report to print.");
}

void close_and_quit(Value& access) {
    access.call("CloseCurrentDatabase");
    engines::end_with(access, "Quit");
}

/// The end in the error traps: also an Access that has opened no database is told to close it.
void let_go(Value& access) noexcept {
    if (!engines::is_held(access)) return;
    session::ignoring_errors([&] { access.call("CloseCurrentDatabase"); });
    engines::end_with_if_held(access, "Quit");
}

}  // namespace

void CreatePDFfromAccessReport(Session& session, const std::string& strPDFFile, const AccessReport& report,
                               std::string strPDFWriter, bool blnCloseAcrobat) {
    session.require_file(report.database);
    Value access;
    session::with_error_trap(
        [&] {
            open_database(session, access, report.database, report.password, strPDFWriter);
            print_report(session, access, report.name,
                         {report.name, view_print, report.filter, report.where_condition, window_hidden},
                         strPDFFile, blnCloseAcrobat);
            close_and_quit(access);
        },
        [&] { let_go(access); });
}

void CreatePDFfromMultiAccessReport(Session& session, const std::string& strPDFFile,
                                    const std::string& strDatabase, const Value& varReportNames,
                                    const std::string& strPassword, std::string strPDFWriter,
                                    bool blnCloseAcrobat) {
    session.require_file(strDatabase);
    Value access;
    session::with_error_trap(
        [&] {
            open_database(session, access, strDatabase, strPassword, strPDFWriter);
            require_reports(varReportNames);
            session::TemporaryFiles printed;
            session::for_each_item<std::int16_t>(varReportNames, [&](std::int16_t index, const Value& item) {
                session.outside().clock.pump_messages();
                const std::string report = automation::to_text(item);
                const std::string target = session.temporary_file(".pdf");
                print_report(session, access, report,
                             {report, named("View", view_print), named("WindowMode", window_hidden)}, target,
                             blnCloseAcrobat);
                printed.put(index, target);
            });
            close_and_quit(access);
            session.remove_if_exists(strPDFFile);
            acrobat::CreatePDFfromMultiPDF(session, strPDFFile, printed.list());
            printed.remove(session);
        },
        [&] { let_go(access); });
}

}  // namespace foliant::converters
