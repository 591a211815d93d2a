#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace foliant::sender {

using Milliseconds = std::chrono::milliseconds;

/// Names a window or control as long as it exists; afterwards the port says it is gone. On Windows an HWND.
enum class WindowId : std::uintptr_t {};

/// A top-level window as it was when asked for.
struct TopLevel {
    WindowId id{};
    std::string caption;  ///< UTF-8, case as shown, without a mnemonic mark of any kind.
    bool visible = false;
    bool enabled = false;   ///< False for one that is blocked by a modal dialog of its own.
    bool is_dialog = true;  ///< False for a program's frame: no dialog box, and no window's owned one.
};

enum class ControlKind {
    push_button,
    check_box,
    other,  ///< All the rest, edit controls and other things of class "Button" (group boxes) included.
};

/// A control as it was when asked for.
struct Control {
    WindowId id{};
    std::string window_class;  ///< Such as "Edit"; compared without regard to case.
    std::string label;         ///< A button's label, UTF-8, "&" of a mnemonic included. Else may be empty.
    ControlKind kind = ControlKind::other;
    bool visible = false;
    bool enabled = false;     ///< Takes input: neither disabled nor, for an edit control, read-only.
    bool focused = false;     ///< Has the keyboard focus of its dialog, active or not.
    bool is_default = false;  ///< A push button: the one that Enter presses.
    bool ticked = false;      ///< A check box: on. The third state of some is not on.
};

/// What a sender may do to a dialog; each can be claimed once per dialog.
enum class Claim {
    option,  ///< Ticking its option, which leaves it open.
    answer,  ///< Answering it, which closes it.
};

/// The windows of a desktop, as a sender sees them and acts on them. It may be looked at and acted on by
/// several senders at once, in one process or in many.
///
/// A window may vanish between any two calls. Calls that act then return false and do nothing; questions
/// answer as for no window. No call throws or waits for long: a window that does not respond counts as
/// failing after about a second. A call that acts returns when the window has taken the act, without
/// waiting for what its program does next, and never activates a window, moves the focus or types.
class Windows {
  public:
    virtual ~Windows() = default;

    /// All top-level windows, dialogs included, topmost first; invisible ones may be left out.
    virtual std::vector<TopLevel> top_level() = 0;

    /// All controls in `window`, nested ones too, depth first: each before those inside it, siblings in
    /// their tab order. Empty when the window is gone.
    virtual std::vector<Control> controls(WindowId window) = 0;

    /// Whether the top-level `window` is still there and shown. One that was hidden has been closed.
    virtual bool is_open(WindowId window) = 0;

    /// Replaces the whole text of an edit control; `text` is UTF-8 and may be empty. Its dialog learns of the
    /// change as if it had been typed. False when the control is gone or takes no input.
    virtual bool set_text(WindowId control, const std::string& text) = 0;

    /// Turns a check box on, as its user's click would; does nothing to one that is on. False when it is
    /// gone or disabled.
    virtual bool tick(WindowId check_box) = 0;

    /// Presses a push button, as its user's click would. False when it is gone or disabled.
    virtual bool press(WindowId push_button) = 0;

    /// Ends a dialog as Enter in one of its edit controls would: presses the default button or, without
    /// one, gives the dialog's OK command. False when the dialog is gone or that button is disabled.
    virtual bool confirm(WindowId window) = 0;

    /// Claims an act on `window` for the caller: true for the first who asks, in whatever process, false for
    /// everybody from then on until the window is destroyed, and when it is gone already.
    virtual bool claim(WindowId window, Claim act) = 0;

    /// Whether somebody has claimed that act on `window`.
    virtual bool is_claimed(WindowId window, Claim act) = 0;

    /// Whether the process that started this sender has ended: no dialog that comes up later is its own.
    virtual bool starter_has_ended() { return false; }

    /// Time since some fixed moment; never goes back.
    virtual Milliseconds now() = 0;

    virtual void sleep_for(Milliseconds time) = 0;
};

}  // namespace foliant::sender
