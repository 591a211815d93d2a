#pragma once

#include <optional>
#include <vector>

#include "sender/command.h"
#include "sender/windows_port.h"

namespace foliant::sender {

/// How long a sender takes over things.
struct Timing {
    /// Between two looks at the desktop.
    Milliseconds poll{100};
    /// How long a dialog must have been up before it is acted on: programs go on filling in a dialog for a
    /// moment after showing it, and would overwrite what was entered. Zero where dialogs are complete
    /// when they are shown.
    Milliseconds settle{200};
    /// How long "^1" leaves a dialog, whose option was ticked all along, to the sender that came to tick it.
    /// If it answered at once, that sender would be left waiting for a dialog that is gone.
    Milliseconds courtesy{2000};
    /// From the first look until the sender gives up, if whoever started it has not ended before. Nobody waits for a sender, and its dialog may come up
    /// only after a long document was laid out; but one that stays for ever would one day answer a dialog
    /// that a user opened.
    Milliseconds limit{std::chrono::minutes{10}};
};

/// What a sender has come to.
enum class Progress {
    waiting,   ///< Not done yet: look again.
    acted,     ///< Done, and the dialog has closed if the command says to see to that.
    given_up,  ///< The time limit is over, or whoever started the sender has ended.
};

/// Exit codes of the sender program.
enum class ExitCode : int {
    acted = 0,      ///< The command was carried out.
    failed = 1,     ///< The program itself failed; no decision of this file.
    malformed = 2,  ///< The command cannot be read (CommandError). Nothing was waited for.
    given_up = 3,   ///< No such dialog, or none with such a control, came up in time.
    left_open = 4,  ///< The dialog was answered but had not closed when the limit was over.
};

/// Carries out one command, once, on the first dialog that it fits.
///
/// A dialog fits when its caption is the command's (case ignored), it is shown and enabled, no other sender
/// has claimed the same act on it, and it has the control (see `choose`). Several windows may bear the
/// caption, a main window among them: each is tried, but no button is pressed in a program's frame, where it
/// would be anything but an answer. One whose control is missing or not ready is looked at
/// again next time, and one that vanishes while being acted on is forgotten.
///
/// Any number of senders may run beside each other. Those with the same caption answer one dialog each, in
/// no particular order, and none answers a dialog that another has already answered.
class Sender {
  public:
    explicit Sender(Command command, Timing timing = {});

    /// Looks once and acts if it can; does not wait. The time limit counts from the first call. Once the
    /// result is not `waiting` it stays, and nothing is looked at any more. May be called again from within
    /// a call that it makes on `windows`; the inner call does nothing.
    Progress step(Windows& windows);

    /// Steps every `Timing::poll` until the command is carried out or given up. Blocks that long.
    ExitCode run(Windows& windows);

    const Command& command() const { return command_; }

  private:
    /// A dialog with the caption that is up now, and since when this sender has seen it so.
    struct Candidate {
        WindowId dialog{};
        Milliseconds since{};
    };

    Progress look(Windows& windows);
    void note_candidates(Windows& windows);
    bool act_on(Windows& windows, const Candidate& candidate);
    bool tick(Windows& windows, WindowId dialog, const Control& option);
    bool own(Windows& windows, WindowId dialog, Claim act);
    bool must_leave_to_other(Windows& windows, const Candidate& candidate) const;
    Progress after_answering(Windows& windows) const;

    Command command_;
    Timing timing_;
    Progress progress_ = Progress::waiting;
    bool stepping_ = false;
    std::optional<Milliseconds> started_;
    std::vector<Candidate> candidates_;  ///< Topmost first.
    std::optional<WindowId> owned_;      ///< The dialog this sender claimed last.
    std::optional<WindowId> answered_;   ///< The dialog it has answered.
};

}  // namespace foliant::sender
