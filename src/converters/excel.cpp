#include "converters/excel.h"

#include <utility>
#include <vector>

#include "acrobat/merge.h"
#include "automation/coerce.h"
#include "converters/postscript.h"
#include "engines/acrobat_windows.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::converters {

using automation::Arguments;
using automation::named;
using automation::Value;
using engines::HostProgram;
using session::Session;
using session::TemporaryFiles;

namespace {

void open_workbook(const Session& session, const Workbook& workbook, HostProgram& excel) {
    excel.application = session.outside().servers.create(registered::excel);
    excel.document = excel.application.get("Workbooks")
                         .call("Open", {workbook.path, named("Password", workbook.password),
                                        named("WriteResPassword", workbook.write_reservation_password)});
    excel.application.set("DisplayAlerts", false);
}

/// The sheet of the job, ready to be printed.
Value set_up_sheet(const HostProgram& excel, const SheetJob& job) {
    Value sheet = excel.document.get("Worksheets", {job.worksheet});
    const Value page = sheet.get("PageSetup");
    set_grid_lines(page, job.style.grid);
    set_orientation(page, job.landscape);
    set_texts_and_margins(excel, page, job.style);
    set_first_page_number(page, job.first_page_number);
    return sheet;
}

/// The number of each sheet's first page, under the indices 0 to the last one of the worksheets.
class FirstPageNumbers {
  public:
    explicit FirstPageNumbers(const SheetsJob& job) {
        const std::int64_t last = session::array_of(job.worksheets)->upper_bound();
        if (last < 0) throw automation::Error(automation::RuntimeError::subscript_out_of_range);
        if (job.first_page_numbers.holds<automation::Missing>()) return;
        for (std::int64_t i = 0; i <= last; ++i) {
            const auto index = static_cast<std::int32_t>(i);
            numbers_.push_back(automation::to_int32(session::item_at(job.first_page_numbers, index)));
        }
    }

    /// Raises 9 below 0: lists of worksheets may begin there.
    std::int32_t at(std::int32_t index) const {
        if (index < 0) throw automation::Error(automation::RuntimeError::subscript_out_of_range);
        return numbers_.empty() ? 1 : numbers_.at(static_cast<std::size_t>(index));
    }

  private:
    std::vector<std::int32_t> numbers_;  ///< none: all sheets begin with page 1
};

/// Whether a sheet lies across: an element without valid data does not say so.
bool is_landscape(const SheetsJob& job, std::int32_t index) {
    const Value wished = session::item_at(job.landscape, index);
    return !wished.holds<automation::Null>() && automation::to_bool(wished);
}

/// The sheet at that index of the job, ready to be printed.
Value set_up_sheet(const HostProgram& excel, const SheetsJob& job, std::int32_t index,
                   const FirstPageNumbers& first_pages) {
    Value sheet = excel.document.get("Worksheets", {session::item_at(job.worksheets, index)});
    const Value page = sheet.get("PageSetup");
    set_grid_lines(page, job.style.grid);
    set_orientation(page, is_landscape(job, index));
    set_texts_and_margins(excel, page, job.style);
    set_first_page_number(page, first_pages.at(index));
    return sheet;
}

Arguments to_file(const std::string& path, const std::string& printer) {
    return {named("Copies", std::int16_t{1}), named("preview", false),     named("PrintToFile", true),
            named("Collate", true),           named("PrToFilename", path), named("ActivePrinter", printer)};
}

/// Takes the sheet and lets it go: Excel does not end while somebody holds one.
void print_range(Value sheet, const Value& range, const Arguments& arguments) {
    sheet.get("Range", {range}).call("PrintOut", arguments);
}

/// Sets up one sheet after the other, makes room for its temporary file, and has `print` print it there.
template <class Print>
TemporaryFiles print_each_sheet(Session& session, const HostProgram& excel, const SheetsJob& job,
                                std::string& strDistiller, const char* extension, Print&& print) {
    TemporaryFiles printed;
    const FirstPageNumbers first_pages(job);
    session::for_each_item<std::int16_t>(job.worksheets, [&](std::int16_t index, const Value&) {
        session.outside().clock.pump_messages();
        Value sheet = set_up_sheet(excel, job, index, first_pages);
        engines::choose_printer(session, strDistiller);
        const std::string path = session.temporary_file(extension);
        session.remove_if_exists(path);
        printed.put(index, path);
        print(std::move(sheet), index, path);
    });
    return printed;
}

void restore_and_quit(HostProgram& excel) {
    excel.application.set("DisplayAlerts", true);
    excel.close_and_quit({false});
}

}  // namespace

void CreatePDFfromExcel(Session& session, const std::string& strPDFFile, const SheetJob& job,
                        std::string& strDistiller, const engines::DistillerOptions& options) {
    session.require_file(job.workbook.path);
    HostProgram excel;
    engines::DistillerJob distiller(session);
    session::with_error_trap(
        [&] {
            open_workbook(session, job.workbook, excel);
            Value sheet = set_up_sheet(excel, job);
            engines::choose_printer(session, strDistiller);
            const std::string postscript = session.temporary_file(".ps");
            session.remove_if_exists(postscript);
            print_range(std::move(sheet), job.range, to_file(postscript, strDistiller));
            engines::wait_for_file(session, postscript);
            restore_and_quit(excel);
            session.remove_if_exists(strPDFFile);
            distiller.run(postscript, strPDFFile, options);
            session.outside().files.remove(postscript);
        },
        [&] {
            excel.let_go({false});
            distiller.release();
        });
}

void CreatePDFfromExcel2(Session& session, const std::string& strPDFFile, const SheetJob& job,
                         std::string& strDistiller, bool blnCloseAcrobat) {
    session.require_file(job.workbook.path);
    HostProgram excel;
    session::with_error_trap(
        [&] {
            open_workbook(session, job.workbook, excel);
            Value sheet = set_up_sheet(excel, job);
            engines::choose_printer(session, strDistiller);
            session.remove_if_exists(strPDFFile);
            engines::answer_printer_dialogs(session, strPDFFile);
            print_range(std::move(sheet), job.range, {named("ActivePrinter", strDistiller)});
            engines::wait_for_file(session, strPDFFile);
            if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
            restore_and_quit(excel);
        },
        [&] { excel.let_go({false}); });
}

void CreatePDFfromMultiExcel(Session& session, const std::string& strPDFFile, const SheetsJob& job,
                             std::string& strDistiller, const engines::DistillerOptions& options) {
    session.require_file(job.workbook.path);
    HostProgram excel;
    session::with_error_trap(
        [&] {
            open_workbook(session, job.workbook, excel);
            const TemporaryFiles printed =
                print_each_sheet(session, excel, job, strDistiller, ".ps",
                                 [&](Value sheet, std::int32_t index, const std::string& postscript) {
                                     print_range(std::move(sheet), session::item_at(job.ranges, index),
                                                 to_file(postscript, strDistiller));
                                     engines::wait_for_file(session, postscript);
                                 });
            restore_and_quit(excel);
            CreatePDFfromMultiPS(session, strPDFFile, printed.list(), strDistiller, options);
            printed.remove(session);
        },
        [&] { excel.let_go({false}); });
}

void CreatePDFfromMultiExcel2(Session& session, const std::string& strPDFFile, const SheetsJob& job,
                              std::string& strDistiller, bool blnCloseAcrobat) {
    session.require_file(job.workbook.path);
    HostProgram excel;
    session::with_error_trap(
        [&] {
            open_workbook(session, job.workbook, excel);
            const TemporaryFiles printed =
                print_each_sheet(session, excel, job, strDistiller, ".pdf",
                                 [&](Value sheet, std::int32_t index, const std::string& pdf) {
                                     engines::answer_printer_dialogs(session, pdf);
                                     print_range(std::move(sheet), session::item_at(job.ranges, index),
                                                 {named("ActivePrinter", strDistiller)});
                                     engines::wait_for_file(session, pdf);
                                     // The window shows the temporary PDF, and yet the one of the whole is looked for: callers
                                     // find the single PDFs open afterwards.
                                     if (blnCloseAcrobat) engines::close_acrobat_window(session, strPDFFile);
                                 });
            restore_and_quit(excel);
            session.remove_if_exists(strPDFFile);
            acrobat::CreatePDFfromMultiPDF(session, strPDFFile, printed.list());
            printed.remove(session);
        },
        [&] { excel.let_go({false}); });
}

void CreatePSfromExcel(Session& session, const std::string& strPSFile, const SheetJob& job,
                       std::string& strDistiller) {
    session.require_file(job.workbook.path);
    HostProgram excel;
    session::with_error_trap(
        [&] {
            open_workbook(session, job.workbook, excel);
            Value sheet = set_up_sheet(excel, job);
            engines::choose_printer(session, strDistiller);
            session.remove_if_exists(strPSFile);
            print_range(std::move(sheet), job.range, to_file(strPSFile, strDistiller));
            engines::wait_for_file(session, strPSFile);
            restore_and_quit(excel);
        },
        [&] { excel.let_go({false}); });
}

}  // namespace foliant::converters
