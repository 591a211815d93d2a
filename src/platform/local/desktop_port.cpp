#include "platform/local/desktop_port.h"

#include <algorithm>
#include <chrono>

#include "automation/text.h"

namespace foliant::platform::local {

using sender::Claim;
using sender::ControlKind;
using sender::WindowId;

namespace {

/// A window's id leaves room for its controls: those of window n are n + 1, n + 2, ...
constexpr std::uintptr_t ids_per_window = 1U << 16U;

WindowId window_id(std::uintptr_t number) {
    return WindowId{number * ids_per_window};
}

WindowId control_id(std::uintptr_t number, std::size_t index) {
    return WindowId{number * ids_per_window + index + 1};
}

ControlKind kind_of(const hosts::Control& control) {
    if (!automation::equal_ignoring_case(control.window_class, "Button")) return ControlKind::other;
    return control.is_check_box ? ControlKind::check_box : ControlKind::push_button;
}

bool takes_text(const hosts::Control& control) {
    const bool is_edit = automation::equal_ignoring_case(control.window_class, "Edit") ||
                         automation::equal_ignoring_case(control.window_class, "RichEdit20W");
    return is_edit && control.enabled;
}

}  // namespace

Desktop::Shown* Desktop::Port::find_dialog(WindowId window) const {
    const auto found =
        std::find_if(desktop_.dialogs_.begin(), desktop_.dialogs_.end(),
                     [&](const Shown* shown) { return shown->open && window_id(shown->number) == window; });
    return found == desktop_.dialogs_.end() ? nullptr : *found;
}

Desktop::Port::Found Desktop::Port::find_control(WindowId control) const {
    const auto id = static_cast<std::uintptr_t>(control);
    Shown* shown = find_dialog(WindowId{id - id % ids_per_window});
    const std::size_t position = id % ids_per_window;
    if (shown == nullptr || position == 0 || position > shown->dialog->controls.size()) return {};
    return {shown, position - 1, &shown->dialog->controls[position - 1]};
}

std::vector<sender::TopLevel> Desktop::Port::top_level() {
    std::vector<sender::TopLevel> windows;
    for (const Shown* shown : desktop_.dialogs_) {
        // What lies below a modal dialog is blocked by it.
        if (shown->open)
            windows.push_back({window_id(shown->number), shown->dialog->caption, true, windows.empty()});
    }
    for (const Window& window : desktop_.windows_)
        windows.push_back({window_id(window.number), window.caption, true, true, false});
    return windows;
}

std::vector<sender::Control> Desktop::Port::controls(WindowId window) {
    std::vector<sender::Control> controls;
    const Shown* shown = find_dialog(window);
    if (shown == nullptr) return controls;
    for (const hosts::Control& control : shown->dialog->controls) {
        controls.push_back({.id = control_id(shown->number, controls.size()),
                            .window_class = control.window_class,
                            .label = control.caption,
                            .kind = kind_of(control),
                            .visible = true,
                            .enabled = control.enabled,
                            .focused = false,
                            .is_default = control.is_default,
                            .ticked = control.checked});
    }
    return controls;
}

bool Desktop::Port::is_open(WindowId window) {
    return find_dialog(window) != nullptr;
}

bool Desktop::Port::set_text(WindowId control, const std::string& text) {
    const Found found = find_control(control);
    if (found.control == nullptr || !found.control->enabled) return false;
    changed_ = changed_ || found.control->text != text;
    found.control->text = text;
    return true;
}

bool Desktop::Port::tick(WindowId check_box) {
    const Found found = find_control(check_box);
    if (found.control == nullptr || !found.control->enabled) return false;
    if (found.control->checked) return true;
    found.control->checked = true;
    found.shown->clicks.push_back(found.index);
    changed_ = true;
    return true;
}

bool Desktop::Port::press(WindowId push_button) {
    const Found found = find_control(push_button);
    if (found.control == nullptr || !found.control->enabled) return false;
    found.shown->clicks.push_back(found.index);
    close(*found.shown, found.control->is_default);
    return true;
}

bool Desktop::Port::confirm(WindowId window) {
    Shown* shown = find_dialog(window);
    if (shown == nullptr) return false;
    const auto& controls = shown->dialog->controls;
    const auto button = std::find_if(controls.begin(), controls.end(), [](const hosts::Control& control) {
        return control.is_default && kind_of(control) == ControlKind::push_button;
    });
    if (button != controls.end())
        return press(control_id(shown->number, static_cast<std::size_t>(button - controls.begin())));
    close(*shown, true);
    return true;
}

void Desktop::Port::type(const Shown& shown, const std::string& text) {
    const auto& controls = shown.dialog->controls;
    const auto edit = std::find_if(controls.begin(), controls.end(), takes_text);
    if (edit == controls.end()) return;
    set_text(control_id(shown.number, static_cast<std::size_t>(edit - controls.begin())), text);
}

void Desktop::Port::press_enter(const Shown& shown) {
    confirm(window_id(shown.number));
}

void Desktop::Port::close(Shown& shown, bool accepted) {
    shown.open = false;
    shown.dialog->accepted = accepted;
    changed_ = true;
}

bool Desktop::Port::claim(WindowId window, Claim act) {
    Shown* shown = find_dialog(window);
    if (shown == nullptr || !shown->claims.insert(act).second) return false;
    changed_ = true;
    return true;
}

bool Desktop::Port::is_claimed(WindowId window, Claim act) {
    const Shown* shown = find_dialog(window);
    return shown != nullptr && shown->claims.contains(act);
}

sender::Milliseconds Desktop::Port::now() {
    return std::chrono::duration_cast<sender::Milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace foliant::platform::local
