#include "hosts/pdf_printer.h"

#include "hosts/viewer.h"

namespace foliant::hosts {
namespace {

constexpr const char* edit_class = "Edit";
constexpr const char* button_class = "Button";
constexpr const char* caption = "Save PDF File As";

/// The file name is its first control.
Dialog save_dialog(const std::string& title) {
    Dialog dialog;
    dialog.caption = caption;
    dialog.controls = {
        {.window_class = edit_class,
         .caption = "File name:",
         .text = std::filesystem::path(title).replace_extension(".pdf").string()},
        {.window_class = button_class, .caption = "Save", .is_default = true},
        {.window_class = button_class, .caption = "Cancel"},
    };
    return dialog;
}

}  // namespace

std::optional<std::filesystem::path> ask_for_printed_file(Machine& machine, const std::string& title) {
    Dialog dialog = save_dialog(title);
    machine.show(dialog);
    const std::string& name = dialog.controls.front().text;
    if (!dialog.accepted || name.empty()) return std::nullopt;
    return name;
}

std::string not_printed(const std::string& title) {
    return title + " was not printed: the dialog \"" + caption + "\" was closed without a file name.";
}

void show_printed_file(Machine& machine, const std::filesystem::path& pdf) {
    machine.open_window(viewer_caption(pdf), {});
}

}  // namespace foliant::hosts
