#include "windows/servers/dialogs.h"

#include <array>
#include <windows.h>

#include "platform/win32/text.h"
#include "windows/sender/dialog_template.h"
#include "windows/servers/record.h"

namespace foliant::tests::servers {
namespace {

using platform::win32::to_utf8;
using sender::win32::test::DialogTemplate;
using sender::win32::test::Item;

constexpr WORD text_id = 101;
constexpr WORD option_id = 102;
constexpr UINT patience_ms = 60000;

const Item ok{L"Button", L"OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP};
const Item cancel{L"Button", L"Cancel", IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP};
constexpr DWORD input = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL;

struct Answer {
    bool confirmed = false;
    bool ticked = false;
    std::wstring text;
};

void end(HWND dialog, bool confirmed) {
    if (auto& answer = *reinterpret_cast<Answer*>(GetWindowLongPtrW(dialog, DWLP_USER)); confirmed) {
        std::array<wchar_t, MAX_PATH> text{};
        GetDlgItemTextW(dialog, text_id, text.data(), MAX_PATH);
        answer = {true, IsDlgButtonChecked(dialog, option_id) == BST_CHECKED, text.data()};
    }
    EndDialog(dialog, 0);
}

INT_PTR CALLBACK dialog_procedure(HWND dialog, UINT message, WPARAM first, LPARAM answer) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, answer);
        SetTimer(dialog, 1, patience_ms, nullptr);
        return TRUE;
    }
    if (message == WM_TIMER) end(dialog, false);
    if (message != WM_COMMAND || HIWORD(first) != BN_CLICKED) return FALSE;
    const WORD control = LOWORD(first);
    if (control == IDOK || control == IDCANCEL) end(dialog, control == IDOK);
    if (control == option_id)
        EnableWindow(GetDlgItem(dialog, text_id), IsDlgButtonChecked(dialog, option_id) == BST_CHECKED);
    return TRUE;
}

Answer show(const std::wstring& caption, const std::vector<Item>& items) {
    Answer answer;
    const DialogTemplate shape(caption, items);
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), shape.get(), nullptr, dialog_procedure,
                            reinterpret_cast<LPARAM>(&answer));
    return answer;
}

void note(Scene& scene, const std::wstring& caption, const std::string& ending) {
    scene.note("dialog \"" + to_utf8(caption) + "\" ends with " + ending);
}

}  // namespace

std::wstring ask_text(Scene& scene, const std::wstring& caption, const std::wstring& control_class) {
    if (control_class.starts_with(L"RichEdit")) LoadLibraryW(L"riched20.dll");
    const Answer answer = show(
        caption, {{L"Static", L"&Name:", 100, SS_LEFT}, {control_class, L"", text_id, input}, ok, cancel});
    note(scene, caption, '"' + to_utf8(answer.text) + '"');
    return answer.text;
}

void ask_optional_text(Scene& scene, const std::wstring& caption, const std::wstring& option) {
    const Answer answer = show(caption, {{L"Button", option, option_id, BS_AUTOCHECKBOX | WS_TABSTOP},
                                         {L"Edit", L"", text_id, input | WS_DISABLED | ES_PASSWORD},
                                         ok,
                                         cancel});
    note(scene, caption, (answer.ticked ? "its option ticked and \"" : "\"") + to_utf8(answer.text) + '"');
}

void show_notice(Scene& scene, const std::wstring& caption) {
    const Answer answer = show(caption, {{L"Static", L"Something that a user is told.", 100, SS_LEFT}, ok});
    note(scene, caption, answer.confirmed ? "OK" : "Cancel");
}

void print_to_pdf(Scene& scene, bool with_notice) {
    const std::wstring file = ask_text(scene, L"Save PDF File As");
    if (file.empty()) return;
    if (with_notice) show_notice(scene, L"Adobe PDF - Security");
    make_file(file);
}

}  // namespace foliant::tests::servers
