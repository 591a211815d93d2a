#include "hosts/acrobat/view/go_to_page.h"

#include <charconv>

#include "hosts/acrobat/acrobat_error.h"

namespace foliant::hosts::acrobat::view {

using automation::RuntimeError;

namespace {

/// Later versions of Acrobat take the number in a control of another class. Callers fill in the one that they
/// expect, by the version that they take this for.
Dialog go_to_page_dialog() {
    Dialog dialog;
    dialog.caption = "Go To Page";
    dialog.controls = {{.window_class = "RichEdit20W"},
                       {.window_class = "Edit"},
                       {.window_class = "Button", .caption = "OK", .is_default = true},
                       {.window_class = "Button", .caption = "Cancel"}};
    return dialog;
}

const std::string& entry(const Dialog& dialog) {
    const std::string& text = dialog.controls[0].text;
    return text.empty() ? dialog.controls[1].text : text;
}

std::int32_t page_number(Document& document, const std::string& text) {
    const auto count = with_file_named(document, [](structure::Pdf& pdf) { return pdf.page_count(); });
    std::int32_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem == std::errc() && end == text.data() + text.size() && number >= 1 && number <= count)
        return number;
    throw acrobat_error(RuntimeError::invalid_procedure_call,
                        "There is no page \"" + text + "\" in " + document.name() + ": it has " +
                            std::to_string(count) + (count == 1 ? " page." : " pages."));
}

}  // namespace

bool go_to_page_by_dialog(Program& program) {
    const ViewPtr view = program.active_view();
    if (!view) throw acrobat_error(RuntimeError::object_not_set, "There is no document to go to a page of.");
    Dialog dialog = go_to_page_dialog();
    program.machine.show(dialog);
    if (!dialog.accepted) return false;
    program.go_to(view, page_number(*view->document, entry(dialog)) - 1);
    return true;
}

}  // namespace foliant::hosts::acrobat::view
