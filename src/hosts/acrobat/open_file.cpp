#include "hosts/acrobat/open_file.h"

#include <optional>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/structure/unreadable.h"

namespace foliant::hosts::acrobat {

using automation::Error;
using automation::RuntimeError;

namespace {

/// Acrobat's dialogs with one line to fill in.
Dialog entry_dialog(std::string caption) {
    Dialog dialog;
    dialog.caption = std::move(caption);
    dialog.controls = {{.window_class = "Edit"},
                       {.window_class = "Button", .caption = "OK", .is_default = true},
                       {.window_class = "Button", .caption = "Cancel"}};
    return dialog;
}

Error wrong_password(const std::string& path) {
    return document_error(path + " cannot be opened: the password is not the one that protects it.");
}

/// Somebody has to say the password: nobody is there to ask when the dialog is refused.
std::optional<std::string> ask_password(Machine& machine, const std::string& path, bool was_wrong) {
    try {
        return ask(machine, "Password");
    } catch (const Error& refused) {
        if (!refused.is(RuntimeError::action_not_supported)) throw;
        throw was_wrong ? wrong_password(path) : password_needed(path);
    }
}

DocumentPtr open_with_asked_password(Machine& machine, const std::string& path) {
    for (bool was_wrong = false;; was_wrong = true) {
        const auto password = ask_password(machine, path, was_wrong);
        if (!password) throw was_wrong ? wrong_password(path) : password_needed(path);
        try {
            return Document::open(machine, path, *password);
        } catch (const structure::WrongPassword&) {
            continue;
        }
    }
}

}  // namespace

std::optional<std::string> ask(Machine& machine, std::string caption) {
    Dialog dialog = entry_dialog(std::move(caption));
    machine.show(dialog);
    if (!dialog.accepted) return std::nullopt;
    return dialog.controls.front().text;
}

Error password_needed(const std::string& path) {
    return document_error(path + " cannot be opened: it is protected. Give the password that opens it.");
}

DocumentPtr open_file(Program& program, const std::string& path) {
    if (DocumentPtr shown = program.shown_document(path)) return shown;
    try {
        return Document::open(program.machine, path, "");
    } catch (const structure::WrongPassword&) {
        return open_with_asked_password(program.machine, path);
    }
}

bool open_by_dialog(Program& program) {
    const auto path = ask(program.machine, "Open");
    if (!path) return false;
    program.show(open_file(program, *path));
    return true;
}

}  // namespace foliant::hosts::acrobat
