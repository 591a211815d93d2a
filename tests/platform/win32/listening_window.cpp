#include "platform/win32/listening_window.h"

#include <utility>

#include "platform/win32/text.h"

namespace foliant::platform::win32::test {

ListeningWindow::ListeningWindow(std::wstring caption) {
    thread_ = std::thread([this, caption = std::move(caption)] {
        const HWND window = CreateWindowExW(0, L"Static", caption.c_str(), WS_POPUP, 0, 0, 1, 1, nullptr,
                                            nullptr, nullptr, nullptr);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(note));
        thread_id_ = GetCurrentThreadId();
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
    });
    while (thread_id_ == 0)
        Sleep(10);
}

ListeningWindow::~ListeningWindow() {
    PostThreadMessageW(thread_id_, WM_QUIT, 0, 0);
    thread_.join();
}

LRESULT CALLBACK ListeningWindow::note(HWND window, UINT message, WPARAM first, LPARAM second) {
    std::string& heard = reinterpret_cast<ListeningWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))->heard_;
    if (message == WM_WININICHANGE) heard += to_utf8(reinterpret_cast<const wchar_t*>(second)) + ";";
    if (message == WM_CLOSE) heard += "close;";
    return DefWindowProcW(window, message, first, second);
}

}  // namespace foliant::platform::win32::test
