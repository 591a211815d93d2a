#include "hosts/acrobat/noting_machine.h"

#include <algorithm>
#include <fcntl.h>

#include "automation/error.h"

namespace foliant::hosts::acrobat::test {

namespace {

/// As a user does who wants what a dialog offers.
void tick_option(Dialog& dialog) {
    for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
        if (!dialog.controls[i].is_check_box) continue;
        dialog.controls[i].checked = true;
        if (dialog.on_click) dialog.on_click(dialog, i);
    }
}

}  // namespace

void NotingMachine::show(Dialog& dialog) {
    notes.push_back("dialog " + dialog.caption);
    if (answers.empty())
        throw automation::Error(automation::RuntimeError::action_not_supported, "Nobody is there.");
    const std::string answer = answers.front();
    answers.pop_front();
    const auto edit = std::ranges::find(dialog.controls, "Edit", &Control::window_class);
    tick_option(dialog);
    if (edit != dialog.controls.end() && edit->enabled) edit->text = answer;
    dialog.accepted = answer != "cancel";
}

void NotingMachine::leave_open(const std::optional<LeftOpen>& document) {
    if (!document) return notes.push_back("nothing on the screen");
    notes.push_back("page " + std::to_string(document->page) + " of " +
                    document->document.filename().string() + " on the screen");
    read_aloud = tests::read_file(document->speech);
}

CapturedPage NotingMachine::capture_page(const std::string& address) {
    notes.push_back("capture " + address);
    if (web_page.empty())
        throw automation::Error(automation::RuntimeError::invalid_procedure_call,
                                address + " cannot be captured: there is none.");
    return {posix::FileDescriptor(::open(web_page.c_str(), O_RDONLY | O_CLOEXEC)), web_page_errors};
}

void NotingMachine::print(std::string_view queue, const std::filesystem::path& pdf, std::string_view title) {
    notes.push_back("print " + std::string(title) + " on " + std::string(queue));
    printed = tests::read_file(pdf);
}

}  // namespace foliant::hosts::acrobat::test
