#pragma once

#include <string_view>
#include <windows.h>

#include "sender/windows_port.h"

namespace foliant::sender::win32 {

/// What a control of that window class is, by its style. Buttons of later Windows (split buttons, command
/// links) are push buttons too.
ControlKind kind_of(HWND control, std::string_view window_class);

/// Whether a push button is drawn as the default one.
bool looks_default(HWND button);

}  // namespace foliant::sender::win32
