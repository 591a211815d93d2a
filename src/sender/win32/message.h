#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <windows.h>

namespace foliant::sender::win32 {

/// Sends a message to a window of any program and gives its answer; nothing when the window is gone or has
/// not answered within a second.
std::optional<LRESULT> ask(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0);

/// Text as windows have it and as the sender has it. Half of a surrogate pair becomes U+FFFD.
std::string to_utf8(std::wstring_view text);
std::wstring to_utf16(std::string_view text);

/// The caption of a top-level window; its program is not asked.
std::string caption_of(HWND window);

/// The class of a window.
std::string class_of(HWND window);

/// The label of a control, as the control tells it; "" when it does not answer.
std::string label_of(HWND control);

}  // namespace foliant::sender::win32
