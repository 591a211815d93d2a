#include "windows/clients/window.h"

#include "windows/com/component.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {
namespace {

constexpr UINT call_back = WM_APP;

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != call_back) return DefWindowProcW(window, message, first, second);
    com::Outcome outcome;
    com::call(*reinterpret_cast<IDispatch*>(GetWindowLongPtrW(window, GWLP_USERDATA)), L"PrinterName", {},
              outcome);
    servers::record("window reads PrinterName: " + servers::describe(*outcome.result));
    return 0;
}

}  // namespace

CallingWindow::CallingWindow(IDispatch& component) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"Client";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, L"Client", L"Client", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&component));
}

CallingWindow::~CallingWindow() {
    over_ = true;
    if (watcher_.joinable()) watcher_.join();
    DestroyWindow(window_);
}

void CallingWindow::tell() {
    PostMessageW(window_, call_back, 0, 0);
}

void CallingWindow::tell_after(std::string text) {
    watcher_ = std::thread([this, text = std::move(text)] {
        constexpr DWORD pause_ms = 20;
        while (!over_ && servers::read_file(servers::record_path()).find(text) == std::string::npos)
            Sleep(pause_ms);
        tell();
    });
}

}  // namespace foliant::tests::clients
