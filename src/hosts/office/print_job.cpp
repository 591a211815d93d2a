#include "hosts/office/print_job.h"

#include <filesystem>

#include "automation/coerce.h"
#include "automation/text.h"
#include "hosts/office/errors.h"

namespace foliant::hosts::office {

using automation::Missing;
using automation::to_int32;
using automation::Value;

namespace {

enum Parameter : std::size_t { range = 2, output_file_name, from, to, item, copies, pages };

enum class PrintRange : std::int32_t { all = 0, from_to = 3, pages = 4 };

automation::Error not_offered(const std::string& what) {
    return word_error(WordError::value_out_of_range, what);
}

bool is_given(const Value& argument) {
    return !argument.holds<Missing>();
}

std::string requested_pages(const Bound& arguments) {
    const std::int32_t chosen = is_given(arguments[range]) ? to_int32(arguments[range]) : 0;
    switch (static_cast<PrintRange>(chosen)) {
        case PrintRange::all:
            return {};
        case PrintRange::from_to:
            return automation::to_text(arguments[from]) + "-" + automation::to_text(arguments[to]);
        case PrintRange::pages:
            return automation::to_text(arguments[pages]);
    }
    throw not_offered(
        "Documents are printed whole (Range 0), from a page to a page (3) or by a list of pages "
        "(4), not with Range " +
        std::to_string(chosen) + ".");
}

constexpr const char* edit_class = "Edit";
constexpr const char* button_class = "Button";

/// The dialog of the PDF printer. The file name is its first control.
Dialog save_dialog(const TextDocument& document) {
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

void print_to_pdf_printer(const WordSession& session, const TextDocument& document,
                          const std::string& requested) {
    Dialog dialog = save_dialog(document);
    session.machine.show(dialog);
    const std::string& name = dialog.controls.front().text;
    if (!dialog.accepted || name.empty())
        throw word_error(WordError::command_failed, document.title() + " was not printed: the dialog \"" +
                                                        dialog.caption +
                                                        "\" was closed without a file name.");
    document.export_pdf(requested, name);
}

void print_to_queue(const WordSession& session, const TextDocument& document, const std::string& requested) {
    const std::filesystem::path pdf = session.machine.private_folder() / "print-job.pdf";
    document.export_pdf(requested, pdf);
    session.machine.print(session.active_printer, pdf, document.title());
    std::filesystem::remove(pdf);
}

}  // namespace

std::vector<std::string_view> print_out_parameters() {
    return {"Background", "Append", "Range", "OutputFileName", "From",        "To",
            "Item",       "Copies", "Pages", "PageType",       "PrintToFile", "Collate"};
}

PrintRequest read_print_request(const Bound& arguments) {
    if (is_given(arguments[copies]) && to_int32(arguments[copies]) != 1)
        throw not_offered("One copy is printed at a time.");
    PrintRequest request;
    if (is_given(arguments[output_file_name]))
        request.output = automation::to_text(arguments[output_file_name]);
    request.pages = requested_pages(arguments);
    return request;
}

void print_out(const WordSession& session, const TextDocument& document, const PrintRequest& request) {
    if (!request.output.empty())
        document.export_ps(request.pages, request.output);
    else if (session.machine.is_pdf_printer(session.active_printer))
        print_to_pdf_printer(session, document, request.pages);
    else
        print_to_queue(session, document, request.pages);
}

}  // namespace foliant::hosts::office
