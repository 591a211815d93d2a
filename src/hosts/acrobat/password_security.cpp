#include "hosts/acrobat/password_security.h"

#include <optional>
#include <string>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/owner_rights.h"

namespace foliant::hosts::acrobat {

using automation::RuntimeError;

namespace {

/// In UTF-8. AES with 256 bits takes no more: a reader would compare the beginning with the whole.
constexpr std::size_t longest_password = 127;

enum SettingsControl : std::size_t { open_option, open_password };

/// What was entered; nothing when the dialog was cancelled.
std::optional<std::string> ask_settings(Machine& machine) {
    Dialog dialog;
    dialog.caption = "Password Security - Settings";
    dialog.controls = {{.window_class = "Button",
                        .caption = "Require a password to open the document",
                        .is_check_box = true},
                       {.window_class = "Edit", .enabled = false},
                       {.window_class = "Button", .caption = "OK", .is_default = true},
                       {.window_class = "Button", .caption = "Cancel"}};
    dialog.on_click = [](Dialog& shown, std::size_t control) {
        if (control == open_option)
            shown.controls[open_password].enabled = shown.controls[open_option].checked;
    };
    machine.show(dialog);
    if (!dialog.accepted) return std::nullopt;
    return dialog.controls[open_option].checked ? dialog.controls[open_password].text : std::string();
}

/// Whether the password was entered again as it is; false when the dialog was cancelled.
bool confirm(Machine& machine, const std::string& password) {
    while (true) {
        Dialog dialog;
        dialog.caption = "Adobe Acrobat - Confirm Open Document Password";
        dialog.controls = {{.window_class = "Edit"},
                           {.window_class = "Button", .caption = "OK", .is_default = true},
                           {.window_class = "Button", .caption = "Cancel"}};
        machine.show(dialog);
        if (!dialog.accepted) return false;
        if (dialog.controls.front().text == password) return true;
    }
}

void show_notice(Machine& machine) {
    Dialog dialog;
    dialog.caption = "Adobe Acrobat";
    dialog.controls = {{.window_class = "Button", .caption = "OK", .is_default = true}};
    machine.show(dialog);
}

}  // namespace

bool protect_active_document(Program& program) {
    const ViewPtr view = program.active_view();
    if (!view) throw acrobat_error(RuntimeError::object_not_set, "There is no document to protect.");
    require_right(*view->document, structure::Right::protect, "may not be given another protection");
    const auto password = ask_settings(program.machine);
    if (!password) return false;
    if (password->empty())
        throw document_error(view->document->path() +
                             " cannot be protected: an empty password protects nothing. Give one.");
    if (password->size() > longest_password)
        throw document_error(view->document->path() + " cannot be protected: the password has " +
                             std::to_string(password->size()) + " bytes in UTF-8, and a PDF takes at most " +
                             std::to_string(longest_password) + ". Give a shorter one.");
    if (!confirm(program.machine, *password)) return false;
    show_notice(program.machine);
    view->document->pdf().protect({*password});
    return true;
}

}  // namespace foliant::hosts::acrobat
