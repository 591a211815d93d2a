#include "platform/win32/windows_windows.h"

#include <utility>
#include <vector>
#include <windows.h>

#include "automation/error.h"
#include "platform/win32/outside_error.h"
#include "platform/win32/text.h"

namespace foliant::platform::win32 {
namespace {

/// Pressing or letting go of a key. Units of UTF-16 are typed as they are, whatever the keyboard has.
INPUT key_event(WORD key, WORD unit, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = unit;
    input.ki.dwFlags = flags;
    return input;
}

/// All at once, so that no other keys come between.
void queue(std::vector<INPUT> events) {
    if (events.empty()) return;
    const auto count = static_cast<UINT>(events.size());
    if (SendInput(count, events.data(), sizeof(INPUT)) == count) return;
    const DWORD code = GetLastError();
    throw automation::Error(automation::RuntimeError::permission_denied,
                            "Permission denied: the active window takes no keys (" +
                                system_text(static_cast<HRESULT>(code)) + ")");
}

}  // namespace

WindowHandle WindowsWindows::find_window(const std::string& caption) {
    // A handle has 32 significant bits and no sign; callers take one above 0 for a window.
    const auto window = reinterpret_cast<ULONG_PTR>(FindWindowA(nullptr, to_ansi(caption).c_str()));
    return static_cast<WindowHandle>(window);
}

void WindowsWindows::close_window(WindowHandle window, const std::string& text) {
    const std::string ansi = to_ansi(text);
    SendMessageA(reinterpret_cast<HWND>(window), WM_CLOSE, 0, reinterpret_cast<LPARAM>(ansi.c_str()));
}

void WindowsWindows::type_text(const std::string& text) {
    std::vector<INPUT> events;
    for (const wchar_t unit : to_utf16(text)) {
        events.push_back(key_event(0, unit, KEYEVENTF_UNICODE));
        events.push_back(key_event(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    queue(std::move(events));
}

void WindowsWindows::press_enter() {
    const auto code = static_cast<WORD>(MapVirtualKeyW(VK_RETURN, MAPVK_VK_TO_VSC));
    queue({key_event(VK_RETURN, code, 0), key_event(VK_RETURN, code, KEYEVENTF_KEYUP)});
}

void WindowsWindows::message_box(const std::string& prompt, const std::string& title, std::uint32_t style) {
    MessageBoxA(nullptr, to_ansi(prompt).c_str(), to_ansi(title).c_str(), style);
}

}  // namespace foliant::platform::win32
