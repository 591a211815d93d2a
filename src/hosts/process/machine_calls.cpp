#include "hosts/process/machine_calls.h"

namespace foliant::hosts::process {

void put_place(Writer& message, const FoundText& place) {
    message.put(place.page).put(place.left).put(place.bottom).put(place.right).put(place.top);
    message.put(std::string_view(place.context));
}

FoundText read_place(Reader& message) {
    FoundText place;
    place.page = message.number<std::int32_t>();
    for (double* side : {&place.left, &place.bottom, &place.right, &place.top})
        *side = message.number<double>();
    place.context = message.text();
    return place;
}

void put_dialog(Writer& message, const Dialog& dialog) {
    message.put(std::string_view(dialog.caption)).put(dialog.accepted);
    message.put(static_cast<std::uint32_t>(dialog.controls.size()));
    for (const Control& control : dialog.controls) {
        for (const std::string& text : {control.window_class, control.caption, control.text})
            message.put(std::string_view(text));
        message.put(control.enabled).put(control.checked);
        message.put(control.is_default).put(control.is_check_box);
    }
}

void update_dialog(Dialog& dialog, Reader& message) {
    dialog.caption = message.text();
    dialog.accepted = message.truth();
    dialog.controls.clear();
    for (auto count = message.count(); count > 0; --count) {
        Control control;
        for (std::string* text : {&control.window_class, &control.caption, &control.text})
            *text = message.text();
        for (bool* flag : {&control.enabled, &control.checked, &control.is_default, &control.is_check_box})
            *flag = message.truth();
        dialog.controls.push_back(std::move(control));
    }
}

}  // namespace foliant::hosts::process
