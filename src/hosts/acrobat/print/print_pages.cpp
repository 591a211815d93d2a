#include "hosts/acrobat/print/print_pages.h"

#include <qpdf/QPDFWriter.hh>
#include <string>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/owner_rights.h"
#include "hosts/acrobat/print/printed_pages.h"
#include "hosts/acrobat/structure/output.h"
#include "hosts/pdf_printer.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::acrobat::print {

using automation::RuntimeError;

namespace {

void require_pages(structure::Pdf& pdf, const Document& document, std::int32_t first, std::int32_t last) {
    const std::int32_t count = pdf.page_count();
    if (first >= 0 && first <= last && last < count) return;
    if (count == 0)
        throw acrobat_error(RuntimeError::invalid_procedure_call,
                            document.name() + " cannot be printed: it has no pages.");
    const std::string pages =
        first == last ? "Page " + std::to_string(first + 1)
                      : "From page " + std::to_string(first + 1) + " to page " + std::to_string(last + 1);
    throw acrobat_error(RuntimeError::invalid_procedure_call,
                        pages + " of " + document.name() + " cannot be printed: it has " +
                            std::to_string(count) + (count == 1 ? " page." : " pages."));
}

void write(QPDF& pages, OutputFile& file) {
    structure::Output output(file);
    QPDFWriter writer(pages);
    writer.setOutputPipeline(&output);
    writer.write();
}

/// Makes the file before the pages: what cannot be written is found out at once.
void write_pages(Document& document, std::int32_t first, std::int32_t last,
                 const std::filesystem::path& target) {
    try {
        const std::unique_ptr<OutputFile> file = document.machine().make_output(target);
        with_file_named(document, [&](structure::Pdf& pdf) {
            write(*printed_pages(pdf, static_cast<std::size_t>(first), static_cast<std::size_t>(last)),
                  *file);
        });
        file->commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application_name, failure);
    }
}

void print_to_file(Document& document, std::int32_t first, std::int32_t last) {
    Machine& machine = document.machine();
    const auto file = ask_for_printed_file(machine, document.name());
    if (!file) throw document_error(not_printed(document.name()));
    write_pages(document, first, last, *file);
    show_printed_file(machine, *file);
}

void print_to_queue(Document& document, std::int32_t first, std::int32_t last, const std::string& printer) {
    Machine& machine = document.machine();
    const std::filesystem::path job = machine.private_folder() / "print-job.pdf";
    write_pages(document, first, last, job);
    machine.print(printer, job, document.name());
    std::filesystem::remove(job);
}

}  // namespace

void print_pages(Document& document, std::int32_t first, std::int32_t last) {
    with_file_named(document, [&](structure::Pdf& pdf) {
        require_pages(pdf, document, first, last);
        require_right(document, structure::Right::print, "may not be printed");
    });
    const std::string printer = document.machine().default_printer();
    if (document.machine().is_pdf_printer(printer))
        print_to_file(document, first, last);
    else
        print_to_queue(document, first, last, printer);
}

}  // namespace foliant::hosts::acrobat::print
