#include "platform/win32/windows_clock.h"

#include <windows.h>

namespace foliant::platform::win32 {
namespace {

/// More messages than ever wait at once; a window that posts to itself without end does not hold up the
/// caller.
constexpr int most_messages = 10000;

/// Takes the next message off the queue, in the character set of its window.
bool take_message(MSG& message) {
    if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == 0) return false;
    const bool wide = message.hwnd == nullptr || IsWindowUnicode(message.hwnd) != 0;
    return (wide ? PeekMessageW : PeekMessageA)(&message, nullptr, 0, 0, PM_REMOVE) != 0;
}

void dispatch(const MSG& message) {
    TranslateMessage(&message);
    const bool wide = message.hwnd == nullptr || IsWindowUnicode(message.hwnd) != 0;
    (wide ? DispatchMessageW : DispatchMessageA)(&message);
}

}  // namespace

void WindowsClock::sleep(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}

void WindowsClock::settle(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}

float WindowsClock::seconds_since_midnight() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const int seconds = now.wHour * 3600 + now.wMinute * 60 + now.wSecond;
    return static_cast<float>(seconds + now.wMilliseconds / 1000.0);
}

std::uint64_t WindowsClock::random_seed() {
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const std::uint64_t time = (std::uint64_t{now.dwHighDateTime} << 32U) | now.dwLowDateTime;
    return time ^ (static_cast<std::uint64_t>(ticks.QuadPart) << 20U);
}

void WindowsClock::pump_messages() {
    MSG message{};
    for (int i = 0; i < most_messages && take_message(message); ++i) {
        if (message.message == WM_QUIT) {
            // It is meant for the caller's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        dispatch(message);
    }
    // Callers pump in loops that have no pause; others get the processor meanwhile.
    Sleep(0);
}

}  // namespace foliant::platform::win32
