#include "sender/win32/control_kind.h"

#include <commctrl.h>

#include "sender/ascii.h"

namespace foliant::sender::win32 {

ControlKind kind_of(HWND control, std::string_view window_class) {
    if (!same_text(window_class, "Button")) return ControlKind::other;
    switch (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) {
        case BS_PUSHBUTTON:
        case BS_DEFPUSHBUTTON:
        case BS_SPLITBUTTON:
        case BS_DEFSPLITBUTTON:
        case BS_COMMANDLINK:
        case BS_DEFCOMMANDLINK:
            return ControlKind::push_button;
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
        case BS_3STATE:
        case BS_AUTO3STATE:
            return ControlKind::check_box;
        default:
            return ControlKind::other;
    }
}

bool looks_default(HWND button) {
    const LONG type = GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK;
    return type == BS_DEFPUSHBUTTON || type == BS_DEFSPLITBUTTON || type == BS_DEFCOMMANDLINK;
}

}  // namespace foliant::sender::win32
