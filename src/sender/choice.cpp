#include "sender/choice.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "sender/ascii.h"

namespace foliant::sender {
namespace {

using Controls = std::vector<Control>;

bool is_ready(const Control& control) {
    return control.visible && control.enabled;
}

template <typename Predicate>
std::optional<Control> first_of(const Controls& controls, Predicate predicate) {
    const auto found = std::find_if(controls.begin(), controls.end(), predicate);
    return found == controls.end() ? std::nullopt : std::optional(*found);
}

bool speaks_of_opening(const Control& control) {
    std::string label = lower_case(control.label);
    std::erase(label, '&');
    return label.find("open") != std::string::npos;
}

Controls::const_iterator find_option(const Controls& controls) {
    const auto is_box = [](const Control& c) { return c.kind == ControlKind::check_box && is_ready(c); };
    const auto opening = std::find_if(controls.begin(), controls.end(),
                                      [&](const Control& c) { return is_box(c) && speaks_of_opening(c); });
    return opening != controls.end() ? opening : std::find_if(controls.begin(), controls.end(), is_box);
}

std::optional<Control> option_box(const Controls& controls) {
    const auto option = find_option(controls);
    return option == controls.end() ? std::nullopt : std::optional(*option);
}

std::optional<Control> input(const Controls& controls, std::string_view window_class) {
    const auto takes_input = [&](const Control& c) {
        return same_text(c.window_class, window_class) && is_ready(c);
    };
    const auto has_focus = [&](const Control& c) { return takes_input(c) && c.focused; };
    const auto focused = first_of(controls, has_focus);
    return focused ? focused : first_of(controls, takes_input);
}

std::optional<Control> option_input(const Controls& controls, std::string_view window_class) {
    const auto option = find_option(controls);
    if (option == controls.end() || !option->ticked) return std::nullopt;
    const auto belongs = std::find_if(std::next(option), controls.end(), [&](const Control& c) {
        return same_text(c.window_class, window_class) && c.visible;
    });
    return belongs != controls.end() && belongs->enabled ? std::optional(*belongs) : std::nullopt;
}

bool is_button(const Control& c) {
    return c.kind == ControlKind::push_button && is_ready(c);
}

std::optional<Control> default_button(const Controls& controls) {
    return first_of(controls, [](const Control& c) { return is_button(c) && c.is_default; });
}

std::optional<Control> only_button(const Controls& controls) {
    return std::count_if(controls.begin(), controls.end(), is_button) == 1 ? first_of(controls, is_button)
                                                                           : std::nullopt;
}

}  // namespace

std::optional<Control> choose(const Command& command, const Controls& controls) {
    switch (command.action()) {
        case Action::enter_text:
            return input(controls, class_name(command.control));
        case Action::enter_option_text:
            return option_input(controls, class_name(command.control));
        case Action::tick_option:
            return option_box(controls);
        case Action::press_default:
            return default_button(controls);
        case Action::dismiss_notice: {
            const auto button = default_button(controls);
            return button ? button : only_button(controls);
        }
    }
    return std::nullopt;
}

}  // namespace foliant::sender
