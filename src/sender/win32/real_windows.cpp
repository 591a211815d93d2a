#include "sender/win32/real_windows.h"

#include <algorithm>
#include <windows.h>

#include "sender/ascii.h"
#include "sender/win32/control_kind.h"
#include "sender/win32/message.h"

namespace foliant::sender::win32 {
namespace {

HWND handle(WindowId id) {
    return reinterpret_cast<HWND>(id);
}
WindowId id_of(HWND window) {
    return static_cast<WindowId>(reinterpret_cast<std::uintptr_t>(window));
}

bool has_style(HWND window, LONG bits) {
    return (GetWindowLongW(window, GWL_STYLE) & bits) == bits;
}

/// The number of a dialog's default button. Only real dialogs are asked: the message means something else, or
/// nothing, to other windows.
std::optional<int> default_number(HWND dialog) {
    if (class_of(dialog) != "#32770") return std::nullopt;
    const auto answer = ask(dialog, DM_GETDEFID);
    if (!answer || HIWORD(*answer) != DC_HASDEFID) return std::nullopt;
    return LOWORD(*answer);
}

/// The control of its dialog that has the focus, whether the dialog is active or not.
HWND focus_in(HWND dialog) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(dialog, nullptr);
    if (GetGUIThreadInfo(thread, &info) == 0 || IsChild(dialog, info.hwndFocus) == 0) return nullptr;
    return info.hwndFocus;
}

Control describe(HWND window, HWND focus) {
    Control control;
    control.id = id_of(window);
    control.window_class = class_of(window);
    control.kind = kind_of(window, control.window_class);
    control.visible = IsWindowVisible(window) != 0;
    const bool is_button = same_text(control.window_class, "Button");
    control.enabled = IsWindowEnabled(window) != 0 && (is_button || !has_style(window, ES_READONLY));
    control.focused = window == focus;
    if (is_button) control.label = label_of(window);
    if (control.kind == ControlKind::check_box) control.ticked = ask(window, BM_GETCHECK) == BST_CHECKED;
    return control;
}

/// Marks the button that the dialog names as its default, else the one that looks so. Where the focus happens
/// to be has no say: in a dialog whose first control is "Cancel" it would make an answer of that.
void mark_default(std::vector<Control>& controls, HWND dialog) {
    const auto mark = [&](auto&& is_it) {
        const auto found = std::find_if(controls.begin(), controls.end(), [&](const Control& c) {
            return c.kind == ControlKind::push_button && is_it(c);
        });
        if (found == controls.end()) return false;
        found->is_default = true;
        return true;
    };
    const auto number = default_number(dialog);
    if (number && mark([&](const Control& c) { return GetDlgCtrlID(handle(c.id)) == *number; })) return;
    mark([](const Control& c) { return looks_default(handle(c.id)); });
}

/// Programs' own dialogs may be of any class, but then they belong to one of their windows.
bool is_dialog(HWND window) {
    return GetWindow(window, GW_OWNER) != nullptr || class_of(window) == "#32770";
}

BOOL CALLBACK add_shown(HWND window, LPARAM list) {
    if (IsWindowVisible(window) == 0) return TRUE;
    reinterpret_cast<std::vector<TopLevel>*>(list)->push_back(
        {id_of(window), caption_of(window), true, IsWindowEnabled(window) != 0, is_dialog(window)});
    return TRUE;
}

BOOL CALLBACK add_child(HWND child, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
    return TRUE;
}

LPARAM as_parameter(HWND window) {
    return reinterpret_cast<LPARAM>(window);
}

WPARAM notice(HWND control, WORD code) {
    return MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(control)), code);
}

/// Tells the owner of a control what its user has done, without waiting for what it does then.
bool post_notice(HWND control, WORD code) {
    return PostMessageW(GetParent(control), WM_COMMAND, notice(control, code), as_parameter(control)) != 0;
}

const wchar_t* claim_name(Claim act) {
    return act == Claim::option ? L"quorixsend.option" : L"quorixsend.answer";
}

/// Held by the one sender that looks at and makes claims.
class ClaimLock {
  public:
    ClaimLock() : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\quorixsend.claim")) {
        const DWORD result = mutex_ == nullptr ? WAIT_FAILED : WaitForSingleObject(mutex_, 1000);
        // A sender that ended while it held the lock has left nothing half done.
        held_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    }
    ClaimLock(const ClaimLock&) = delete;
    ClaimLock& operator=(const ClaimLock&) = delete;
    ~ClaimLock() {
        if (held_) ReleaseMutex(mutex_);
        if (mutex_ != nullptr) CloseHandle(mutex_);
    }
    bool held() const { return held_; }

  private:
    HANDLE mutex_;
    bool held_ = false;
};

}  // namespace

std::vector<TopLevel> RealWindows::top_level() {
    std::vector<TopLevel> windows;
    EnumWindows(add_shown, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::vector<Control> RealWindows::controls(WindowId window) {
    const HWND dialog = handle(window);
    // One that does not answer would cost a second for every control in it.
    if (!ask(dialog, WM_NULL)) return {};
    std::vector<HWND> children;
    EnumChildWindows(dialog, add_child, reinterpret_cast<LPARAM>(&children));
    const HWND focus = focus_in(dialog);
    std::vector<Control> controls;
    for (const HWND child : children)
        controls.push_back(describe(child, focus));
    mark_default(controls, dialog);
    return controls;
}

bool RealWindows::is_open(WindowId window) {
    return IsWindowVisible(handle(window)) != 0;
}

bool RealWindows::set_text(WindowId control, const std::string& text) {
    const HWND edit = handle(control);
    if (IsWindowEnabled(edit) == 0 || has_style(edit, ES_READONLY)) return false;
    if (ask(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(to_utf16(text).c_str())).value_or(FALSE) == FALSE)
        return false;
    // An edit control of several lines keeps it to itself that its text was replaced.
    if (has_style(edit, ES_MULTILINE))
        ask(GetParent(edit), WM_COMMAND, notice(edit, EN_CHANGE), as_parameter(edit));
    return true;
}

bool RealWindows::tick(WindowId check_box) {
    const HWND box = handle(check_box);
    if (IsWindowEnabled(box) == 0) return false;
    const auto state = ask(box, BM_GETCHECK);
    if (!state || *state == BST_CHECKED) return state.has_value();
    // A box that does not tick itself is ticked by its dialog when that hears of the click.
    const LONG type = GetWindowLongW(box, GWL_STYLE) & BS_TYPEMASK;
    const bool ticks_itself = type == BS_AUTOCHECKBOX || type == BS_AUTO3STATE;
    if (ticks_itself && !ask(box, BM_SETCHECK, BST_CHECKED)) return false;
    ask(GetParent(box), WM_COMMAND, notice(box, BN_CLICKED), as_parameter(box));
    return true;
}

bool RealWindows::press(WindowId push_button) {
    const HWND button = handle(push_button);
    // Not BM_CLICK: that moves the focus, and does nothing in a dialog that is not active.
    return IsWindowEnabled(button) != 0 && post_notice(button, BN_CLICKED);
}

bool RealWindows::confirm(WindowId window) {
    const HWND dialog = handle(window);
    const auto number = default_number(dialog);
    HWND button = number ? GetDlgItem(dialog, *number) : nullptr;
    if (button == nullptr && !number) {
        for (const Control& control : controls(window))
            if (control.is_default) button = handle(control.id);
    }
    if (button != nullptr) return press(id_of(button));
    return PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(number.value_or(IDOK), BN_CLICKED), 0) != 0;
}

bool RealWindows::claim(WindowId window, Claim act) {
    const ClaimLock lock;
    const HWND dialog = handle(window);
    if (!lock.held() || GetPropW(dialog, claim_name(act)) != nullptr) return false;
    return SetPropW(dialog, claim_name(act), reinterpret_cast<HANDLE>(1)) != 0;
}

bool RealWindows::is_claimed(WindowId window, Claim act) {
    return GetPropW(handle(window), claim_name(act)) != nullptr;
}

Milliseconds RealWindows::now() {
    return Milliseconds(GetTickCount64());
}

void RealWindows::sleep_for(Milliseconds time) {
    Sleep(static_cast<DWORD>(time.count()));
}

}  // namespace foliant::sender::win32
