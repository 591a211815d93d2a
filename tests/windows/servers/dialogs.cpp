#include "windows/servers/dialogs.h"

#include <array>
#include <windows.h>

#include "windows/sender/dialog_template.h"

namespace foliant::tests::servers {
namespace {

using sender::win32::test::DialogTemplate;
using sender::win32::test::Item;

constexpr WORD file_id = 101;
constexpr UINT patience_ms = 60000;

/// `answer`, a wide string, becomes the text of the edit control when the dialog ends with its default
/// button.
INT_PTR CALLBACK dialog_procedure(HWND dialog, UINT message, WPARAM first, LPARAM answer) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, answer);
        SetTimer(dialog, 1, patience_ms, nullptr);
        return TRUE;
    }
    if (message == WM_TIMER) EndDialog(dialog, IDCANCEL);
    if (message != WM_COMMAND || HIWORD(first) != BN_CLICKED) return FALSE;
    if (LOWORD(first) == IDOK) {
        std::array<wchar_t, MAX_PATH> text{};
        GetDlgItemTextW(dialog, file_id, text.data(), MAX_PATH);
        *reinterpret_cast<std::wstring*>(GetWindowLongPtrW(dialog, DWLP_USER)) = text.data();
    }
    if (LOWORD(first) == IDOK || LOWORD(first) == IDCANCEL) EndDialog(dialog, LOWORD(first));
    return TRUE;
}

bool show(const std::wstring& caption, const std::vector<Item>& items, std::wstring& answer) {
    const DialogTemplate shape(caption, items);
    return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), shape.get(), nullptr, dialog_procedure,
                                   reinterpret_cast<LPARAM>(&answer)) == IDOK;
}

}  // namespace

PrinterAnswers ask_where_to_print() {
    PrinterAnswers answers{};
    const Item cancel{L"Button", L"Cancel", IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP};
    show(L"Save PDF File As",
         {{L"Static", L"File &name:", 100, SS_LEFT},
          {L"Edit", L"Document1.pdf", file_id, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL},
          {L"Button", L"&Save", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP},
          cancel},
         answers.file);
    if (answers.file.empty()) return answers;
    std::wstring no_text;
    answers.notice_closed =
        show(L"Adobe PDF - Security",
             {{L"Static", L"The document has security settings that its PDF will not have.", 100, SS_LEFT},
              {L"Button", L"OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP}},
             no_text);
    return answers;
}

}  // namespace foliant::tests::servers
