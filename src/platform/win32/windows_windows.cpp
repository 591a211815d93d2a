#include "platform/win32/windows_windows.h"

#include <windows.h>

#include "platform/win32/text.h"

namespace foliant::platform::win32 {

WindowHandle WindowsWindows::find_window(const std::string& caption) {
    // A handle has 32 significant bits and no sign; callers take one above 0 for a window.
    const auto window = reinterpret_cast<ULONG_PTR>(FindWindowA(nullptr, to_ansi(caption).c_str()));
    return static_cast<WindowHandle>(window);
}

void WindowsWindows::close_window(WindowHandle window, const std::string& text) {
    const std::string ansi = to_ansi(text);
    SendMessageA(reinterpret_cast<HWND>(window), WM_CLOSE, 0, reinterpret_cast<LPARAM>(ansi.c_str()));
}

void WindowsWindows::message_box(const std::string& prompt, const std::string& title, std::uint32_t style) {
    MessageBoxA(nullptr, to_ansi(prompt).c_str(), to_ansi(title).c_str(), style);
}

}  // namespace foliant::platform::win32
