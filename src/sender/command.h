#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace foliant::sender {

/// What a command does to the dialog it waits for. The class and the text of a command choose it; see
/// `Command::action`.
enum class Action {
    enter_text,         ///< Edit, RichEdit20W: replace the text, then end the dialog as Enter would.
    enter_option_text,  ///< The same, into the control that belongs to the option "{LM}" ticks.
    press_default,      ///< Button, empty text: press the dialog's default button.
    tick_option,        ///< Button, "{LM}": tick the dialog's option and leave the dialog open.
    dismiss_notice,     ///< Button, "{LME}": press the button that ends a notice.
};

enum class ControlClass { edit, button, rich_edit };

/// The window class of a control as commands spell it: "Edit", "Button" or "RichEdit20W".
std::string_view class_name(ControlClass control);

/// One command: which dialog to wait for, which control in it to act on, and what to do there.
///
/// A command is written as five fields, each followed by "~":
///
///     caption~class~text~A~B~
///
/// - caption: of the dialog, compared without regard to the case of ASCII letters. Never empty.
/// - class: "Edit", "RichEdit20W" or "Button", in any case.
/// - text: for the edit classes what to enter, taken as it stands; it may be empty, and "{LM}" is then
///   just four characters. For a button: empty, "{LM}" or "{LME}", and nothing else.
/// - A: always "0". "1" has no meaning, and is refused rather than ignored.
/// - B: "0", the sender ends as soon as it has acted; "1", it stays until the dialog it answered has
///   closed, and its exit code tells whether it did. "{LM}" closes nothing, so it ends at once.
///
/// Nothing is escaped, and nothing needs to be: caption and class hold no "~" and are read from the
/// front, the flags from the back, and all that lies between is the text. A password such as "a~0~1"
/// therefore arrives whole. Blanks before the caption and white space after the last "~" are passed over
/// (command interpreters add some); blanks inside the text belong to it.
///
/// Whatever the flags, a sender acts through messages to the controls. It never activates a window,
/// moves the focus or makes keystrokes, so keys that are typed meanwhile go where they were meant to.
///
/// The four commands that protect a document meet in Acrobat's "Password Security - Settings":
///
///     password security - settings~Button~{LM}~0~1~                  ticks "require a password to open"
///     password security - settings~Edit~abc^1~0~1~                   enters abc there, confirms
///     adobe acrobat - confirm open document password~Edit~abc~0~1~   enters abc again, confirms
///     adobe acrobat~Button~{LME}~0~1~                                dismisses the closing notice
///
/// "{LM}" and "^1" work on the same dialog from two processes. "^1" says that one other command acts on
/// it first: its sender waits until the option is ticked and the control that belongs to it is enabled.
/// The suffix is known under that one caption only. Anywhere else it is part of the text, which is why a
/// password that itself ends in "^1" reaches both dialogs unharmed: abc^1^1 here, abc^1 there.
struct Command {
    std::string caption;
    ControlClass control = ControlClass::edit;
    std::string text;                ///< The third field, as written.
    bool stay_until_closed = false;  ///< Flag B.

    Action action() const;

    /// What is entered into the control: the text, without "^1" where that is a suffix. Empty for buttons.
    std::string entry() const;

    bool operator==(const Command&) const = default;
};

/// Thrown for a command that cannot be understood. `what()` says what is wrong and how a command looks;
/// it quotes neither text nor flags: where a field is missing, what stands there may be a password.
class CommandError : public std::runtime_error {
  public:
    enum class Fault {
        empty,           ///< Nothing there at all.
        not_terminated,  ///< Does not end with "~": it may have been cut, and half a path is no path.
        too_few_fields,  ///< Fewer than five.
        no_caption,      ///< Would match every window without a title.
        unknown_class,   ///< None of the three.
        unknown_action,  ///< A button's text that is neither empty, "{LM}" nor "{LME}".
        bad_flag,        ///< Flag A not "0", or flag B neither "0" nor "1".
    };

    CommandError(Fault fault, const std::string& problem);

    Fault fault() const { return fault_; }

  private:
    Fault fault_;
};

/// Reads a command tail: everything after the first blank that follows the program's name.
/// Throws CommandError.
Command parse(std::string_view tail);

/// The command tail of a complete command line; a view into `command_line`, empty when there is none.
///
/// A program in quotation marks ends at the closing one. Without them its path may contain blanks
/// (C:\My Tools\quorixsend.exe open~Edit~...), so it ends at the first blank that follows the file name
/// "quorixsend" or "quorixsend.exe", in any case. A folder may bear that name too (C:\quorixsend files\...):
/// a name that comes again before the next "~" is the program's. Where the name does not occur, the program
/// having been renamed, the path ends at the first blank.
std::string_view command_tail(std::string_view command_line);

}  // namespace foliant::sender
