#include "hosts/acrobat/noting_machine.h"

#include <algorithm>

#include "automation/error.h"

namespace foliant::hosts::acrobat::test {

void NotingMachine::show(Dialog& dialog) {
    notes.push_back("dialog " + dialog.caption);
    if (answers.empty())
        throw automation::Error(automation::RuntimeError::action_not_supported, "Nobody is there.");
    const std::string answer = answers.front();
    answers.pop_front();
    const auto edit = std::ranges::find(dialog.controls, "Edit", &Control::window_class);
    if (edit != dialog.controls.end()) edit->text = answer;
    dialog.accepted = answer != "cancel";
}

void NotingMachine::print(std::string_view queue, const std::filesystem::path& pdf, std::string_view title) {
    notes.push_back("print " + std::string(title) + " on " + std::string(queue));
    printed = tests::read_file(pdf);
}

}  // namespace foliant::hosts::acrobat::test
