#include "acrobat/print.h"

#include <memory>
#include <optional>

#include "acrobat/acrobat.h"
#include "acrobat/pages.h"
#include "automation/text.h"
#include "engines/default_printer.h"
#include "session/errors.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

constexpr std::int16_t postscript_level = 2;
constexpr bool binary_output = true;
constexpr bool shrink_to_fit = false;

void switch_if_named(engines::PrinterSwitch& printer, const std::string& name) {
    if (!automation::trim_blanks(name).empty()) printer.switch_to(name);
}

void print_pages(const Value& viewer, const Value& first, const Value& last, bool silent) {
    viewer.call(silent ? "PrintPagesSilent" : "PrintPages",
                {first, last, postscript_level, binary_output, shrink_to_fit});
}

}  // namespace

void PrintPDF(const Session& session, const PdfFile& file, const PrintSettings& settings, PageRange pages) {
    session.require_file(file.path);
    Acrobat acrobat;
    session::with_error_trap(
        [&] {
            acrobat.application = new_application(session);
            acrobat.viewer = new_viewer(session);
            acrobat.document = new_document(session);
            open_in_viewer(session, acrobat, file);
            engines::PrinterSwitch printer(session);
            switch_if_named(printer, settings.printer);
            const auto last_named = page_index(pages.last);
            const std::int32_t last = last_named ? *last_named : last_page(acrobat.document);
            const std::int32_t first = page_index(pages.first).value_or(0);
            print_pages(acrobat.viewer, first, last, settings.silent);
            printer.restore();
            acrobat.close_and_exit();
        },
        [&] { acrobat.let_go(); });
}

void PrintPDFinDir(const Session& session, const std::string& strDirectory, const std::string& strFiles,
                   const PrintSettings& settings) {
    Acrobat acrobat;
    session::with_error_trap(
        [&] {
            acrobat.viewer = new_viewer(session);
            acrobat.document = new_document(session);
            auto& files = session.outside().files;
            const std::string folder = automation::with_separator(strDirectory, files.separator());
            const std::unique_ptr<platform::Listing> listing = files.list(folder + strFiles);
            std::optional<std::string> name = listing->next();
            engines::PrinterSwitch printer(session);
            switch_if_named(printer, settings.printer);
            for (; name; name = listing->next()) {
                open_in_viewer(session, acrobat, {.path = folder + *name});
                const std::int16_t last = last_page_in_16_bits(acrobat.document);
                print_pages(acrobat.viewer, std::int16_t{0}, last, settings.silent);
                acrobat.viewer.call("Close", {true});
            }
            printer.restore();
            acrobat.release();
        },
        [&] { acrobat.let_go(); });
}

}  // namespace foliant::acrobat
