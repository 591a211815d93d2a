#include "windows/servers/acrobat_window.h"

#include <utility>
#include <windows.h>

#include "windows/servers/dialogs.h"

namespace foliant::tests::servers {
namespace {

HWND window = nullptr;
std::shared_ptr<Scene> scene_of_window;

LRESULT CALLBACK note_closing(HWND closed, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_CLOSE && scene_of_window) scene_of_window->note("Acrobat's main window is closed");
    if (message == WM_DESTROY) {
        window = nullptr;
        scene_of_window.reset();
    }
    return DefWindowProcW(closed, message, first, second);
}

}  // namespace

void show_in_acrobat(std::wstring name) {
    const std::wstring caption = L"Adobe Acrobat - [" + std::move(name) + L"]";
    window = CreateWindowExW(0, L"Static", caption.c_str(), WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                             nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(note_closing));
}

void empty_acrobat(const std::shared_ptr<Scene>& scene) {
    if (window == nullptr) return;
    scene_of_window = scene;
    SetWindowTextW(window, L"Adobe Acrobat");
}

void run_menu_item(Scene& scene, const std::wstring& item) {
    if (item == L"GoToPage") ask_text(scene, L"Go To Page", L"RichEdit20W");
    if (item == L"Open") {
        ask_text(scene, L"Open");
        ask_text(scene, L"Password");
    }
    if (item == L"Web2PDF:OpnURL") show_in_acrobat(ask_text(scene, L"Create PDF from Web Page") + L"/");
    if (item == L"Weblink:CreateURLs") {
        show_notice(scene, L"Create Web Links");
        show_notice(scene, L"Adobe Acrobat");
    }
    if (item == L"SecureApplyPwdSecurity") {
        ask_optional_text(scene, L"Password Security - Settings",
                          L"&Require a password to open the document");
        ask_text(scene, L"Adobe Acrobat - Confirm Open Document Password");
        show_notice(scene, L"Adobe Acrobat");
    }
}

}  // namespace foliant::tests::servers
