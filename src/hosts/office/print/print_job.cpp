#include "hosts/office/print/print_job.h"

#include "hosts/pdf_printer.h"

namespace foliant::hosts::office {

namespace {

void print_to_pdf_printer(const Printable& document, const std::string& pages, Machine& machine,
                          const Application& application) {
    const auto file = ask_for_printed_file(machine, document.title());
    if (!file) throw application.error(application.command_failed, not_printed(document.title()));
    document.export_pdf(pages, *file);
    show_printed_file(machine, *file);
}

void print_to_queue(const Printable& document, const std::string& pages, std::string_view printer,
                    Machine& machine) {
    const std::filesystem::path pdf = machine.private_folder() / "print-job.pdf";
    document.export_pdf(pages, pdf);
    machine.print(printer, pdf, document.title());
    std::filesystem::remove(pdf);
}

}  // namespace

void print(const Printable& document, const PrintRequest& request, std::string_view printer, Machine& machine,
           const Application& application) {
    if (!request.output.empty())
        document.export_ps(request.pages, request.output);
    else if (machine.is_pdf_printer(printer))
        print_to_pdf_printer(document, request.pages, machine, application);
    else
        print_to_queue(document, request.pages, printer, machine);
}

}  // namespace foliant::hosts::office
