#include "hosts/acrobat/web_capture.h"

#include <string>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/acrobat/acrobat_error.h"

namespace foliant::hosts::acrobat {

using automation::Error;

namespace {

std::optional<std::string> ask_for_address(Machine& machine) {
    Dialog dialog;
    dialog.caption = "Create PDF from Web Page";
    dialog.controls = {{.window_class = "Edit", .caption = "URL:"},
                       {.window_class = "Button", .caption = "Create", .is_default = true},
                       {.window_class = "Button", .caption = "Cancel"}};
    machine.show(dialog);
    if (!dialog.accepted) return std::nullopt;
    return dialog.controls.front().text;
}

/// Waits for nobody who is not there: what went wrong is raised or told in any case.
void show_notice(Machine& machine, std::string caption) {
    Dialog dialog;
    dialog.caption = std::move(caption);
    dialog.controls = {{.window_class = "Button", .caption = "OK", .is_default = true}};
    try {
        machine.show(dialog);
    } catch (const Error&) {  // NOLINT(bugprone-empty-catch)
    }
}

CapturedPage capture(Machine& machine, const std::string& address) {
    try {
        if (automation::trim_blanks(address).empty())
            throw document_error(
                "There is no page to capture: its address is empty. Give one, such as www.example.org.");
        return machine.capture_page(address);
    } catch (const Error&) {
        show_notice(machine, "Error: Nothing Done");
        throw;
    }
}

}  // namespace

bool capture_page_by_dialog(Program& program) {
    const auto address = ask_for_address(program.machine);
    if (!address) return false;
    const CapturedPage page = capture(program.machine, *address);
    program.show(Document::of_file(program.machine, page.pdf.get(), *address));
    if (!page.errors.empty()) {
        program.machine.tell_failure(page.errors);
        show_notice(program.machine, "There were errors");
    }
    program.machine.open_window("Adobe Acrobat - [" + *address + "/]", {});
    return true;
}

}  // namespace foliant::hosts::acrobat
