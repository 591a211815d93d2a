#include "platform/win32/profile_listener.h"

#include "platform/win32/text.h"

namespace foliant::platform::win32::test {

ProfileListener::ProfileListener() {
    thread_ = std::thread([this] {
        const HWND window = CreateWindowExW(0, L"Static", L"listener", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                            nullptr, nullptr);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(note_section));
        thread_id_ = GetCurrentThreadId();
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
    });
    while (thread_id_ == 0)
        Sleep(10);
}

ProfileListener::~ProfileListener() {
    PostThreadMessageW(thread_id_, WM_QUIT, 0, 0);
    thread_.join();
}

LRESULT CALLBACK ProfileListener::note_section(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_WININICHANGE)
        reinterpret_cast<ProfileListener*>(GetWindowLongPtrW(window, GWLP_USERDATA))->heard_ +=
            to_utf8(reinterpret_cast<const wchar_t*>(second)) + ";";
    return DefWindowProcW(window, message, first, second);
}

}  // namespace foliant::platform::win32::test
