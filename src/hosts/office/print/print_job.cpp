#include "hosts/office/print/print_job.h"

#include "hosts/viewer.h"

namespace foliant::hosts::office {

namespace {

constexpr const char* edit_class = "Edit";
constexpr const char* button_class = "Button";

/// The dialog of the PDF printer. The file name is its first control.
Dialog save_dialog(const Printable& document) {
    const std::string proposal = std::filesystem::path(document.title()).replace_extension(".pdf").string();
    Dialog dialog;
    dialog.caption = "Save PDF File As";
    dialog.controls = {
        {.window_class = edit_class, .caption = "File name:", .text = proposal},
        {.window_class = button_class, .caption = "Save", .text = {}, .is_default = true},
        {.window_class = button_class, .caption = "Cancel", .text = {}},
    };
    return dialog;
}

void print_to_pdf_printer(const Printable& document, const std::string& pages, Machine& machine,
                          const Application& application) {
    Dialog dialog = save_dialog(document);
    machine.show(dialog);
    const std::string& name = dialog.controls.front().text;
    if (!dialog.accepted || name.empty())
        throw application.error(application.command_failed,
                                document.title() + " was not printed: the dialog \"" + dialog.caption +
                                    "\" was closed without a file name.");
    document.export_pdf(pages, name);
    machine.open_window(viewer_caption(name), {});
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
