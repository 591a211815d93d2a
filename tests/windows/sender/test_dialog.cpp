#include "windows/sender/test_dialog.h"

#include <array>

namespace foliant::sender::win32::test {
namespace {

constexpr UINT note_focus = WM_APP;
constexpr UINT give_up = WM_APP + 1;

struct Showing {
    const OnCommand& on_command;
    Outcome outcome;
    HWND first_focus = nullptr;
};

std::wstring text_of(HWND control) {
    std::array<wchar_t, 1024> text{};
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    return text.data();
}

BOOL CALLBACK note_control(HWND control, LPARAM showing) {
    auto& outcome = reinterpret_cast<Showing*>(showing)->outcome;
    const auto id = static_cast<WORD>(GetDlgCtrlID(control));
    outcome.texts[id] = text_of(control);
    outcome.ticked[id] = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return TRUE;
}

void end(HWND dialog, Showing& showing, WORD button) {
    EnumChildWindows(dialog, note_control, reinterpret_cast<LPARAM>(&showing));
    showing.outcome.focus_moved = GetFocus() != showing.first_focus;
    EndDialog(dialog, button);
}

INT_PTR CALLBACK dialog_procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, second);
        PostMessageW(dialog, note_focus, 0, 0);
        return TRUE;
    }
    auto* showing = reinterpret_cast<Showing*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (showing == nullptr) return FALSE;
    if (message == note_focus) showing->first_focus = GetFocus();
    if (message == give_up) EndDialog(dialog, 0);
    if (message != WM_COMMAND) return FALSE;
    const WORD control = LOWORD(first);
    if (HIWORD(first) == EN_CHANGE) showing->outcome.changed.push_back(control);
    if (showing->on_command) showing->on_command(dialog, control, HIWORD(first));
    if (HIWORD(first) == BN_CLICKED && control >= IDOK && control <= IDNO) end(dialog, *showing, control);
    return TRUE;
}

BOOL CALLBACK end_dialog(HWND window, LPARAM) {
    PostMessageW(window, give_up, 0, 0);
    return TRUE;
}

}  // namespace

Outcome show(const std::wstring& caption, const std::vector<Item>& items, const OnCommand& on_command) {
    const DialogTemplate shape(caption, items);
    Showing showing{on_command, {}, nullptr};
    showing.outcome.ended_with =
        DialogBoxIndirectParamW(GetModuleHandleW(nullptr), shape.get(), nullptr, dialog_procedure,
                                reinterpret_cast<LPARAM>(&showing));
    return showing.outcome;
}

ShownDialog::~ShownDialog() {
    end();
    thread_.join();
}

void ShownDialog::end() {
    while (!done_) {
        EnumThreadWindows(thread_id_, end_dialog, 0);
        Sleep(10);
    }
}

const Outcome& ShownDialog::wait() {
    for (int i = 0; i < 100 && !done_; ++i)
        Sleep(100);
    end();
    return outcome_;
}

}  // namespace foliant::sender::win32::test
