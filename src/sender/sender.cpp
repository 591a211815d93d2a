#include "sender/sender.h"

#include <algorithm>
#include <utility>

#include "sender/ascii.h"
#include "sender/choice.h"

namespace foliant::sender {
namespace {

/// Holds a flag up for the length of a scope.
class Raised {
  public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& flag_;
};

bool carry_out(Windows& windows, WindowId dialog, const Control& control, const Command& command) {
    if (command.control == ControlClass::button) return windows.press(control.id);
    return windows.set_text(control.id, command.entry()) && windows.confirm(dialog);
}

}  // namespace

Sender::Sender(Command command, Timing timing) : command_(std::move(command)), timing_(timing) {}

Progress Sender::step(Windows& windows) {
    if (stepping_ || progress_ != Progress::waiting) return progress_;
    const Raised raised(stepping_);
    if (!started_) started_ = windows.now();
    if (windows.starter_has_ended()) return progress_ = Progress::given_up;
    progress_ = look(windows);
    if (progress_ == Progress::waiting && windows.now() - *started_ >= timing_.limit)
        progress_ = Progress::given_up;
    return progress_;
}

ExitCode Sender::run(Windows& windows) {
    while (step(windows) == Progress::waiting)
        windows.sleep_for(timing_.poll);
    if (progress_ == Progress::acted) return ExitCode::acted;
    return answered_ ? ExitCode::left_open : ExitCode::given_up;
}

Progress Sender::look(Windows& windows) {
    if (answered_) return after_answering(windows);
    note_candidates(windows);
    for (const Candidate& candidate : candidates_) {
        if (!act_on(windows, candidate)) continue;
        if (command_.action() == Action::tick_option) return Progress::acted;
        answered_ = candidate.dialog;
        return after_answering(windows);
    }
    return Progress::waiting;
}

void Sender::note_candidates(Windows& windows) {
    const Milliseconds now = windows.now();
    std::vector<Candidate> found;
    for (const TopLevel& window : windows.top_level()) {
        if (!window.visible || !window.enabled || !same_text(window.caption, command_.caption)) continue;
        if (!window.is_dialog && command_.control == ControlClass::button) continue;
        const auto known = std::find_if(candidates_.begin(), candidates_.end(),
                                        [&](const Candidate& c) { return c.dialog == window.id; });
        found.push_back({window.id, known == candidates_.end() ? now : known->since});
    }
    candidates_ = std::move(found);
}

/// Does the command's work on one dialog. False when it could not be done, or not yet; doing it again later
/// is then harmless.
bool Sender::act_on(Windows& windows, const Candidate& candidate) {
    if (windows.now() - candidate.since < timing_.settle) return false;
    const auto control = choose(command_, windows.controls(candidate.dialog));
    if (!control || must_leave_to_other(windows, candidate)) return false;
    if (command_.action() == Action::tick_option) return tick(windows, candidate.dialog, *control);
    return own(windows, candidate.dialog, Claim::answer) &&
           carry_out(windows, candidate.dialog, *control, command_);
}

bool Sender::tick(Windows& windows, WindowId dialog, const Control& option) {
    if (!own(windows, dialog, Claim::option)) return false;
    if (option.ticked) return true;
    if (!windows.tick(option.id)) return false;
    // The sender that enters the password may have answered the dialog the moment the option was ticked.
    const auto now = choose(command_, windows.controls(dialog));
    return now ? now->ticked : !windows.is_open(dialog);
}

/// Claims an act on `dialog`; a claim that this sender holds already serves a second attempt as well.
bool Sender::own(Windows& windows, WindowId dialog, Claim act) {
    if (owned_ == dialog) return true;
    if (!windows.claim(dialog, act)) return false;
    owned_ = dialog;
    return true;
}

bool Sender::must_leave_to_other(Windows& windows, const Candidate& candidate) const {
    return command_.action() == Action::enter_option_text &&
           windows.now() - candidate.since < timing_.courtesy &&
           !windows.is_claimed(candidate.dialog, Claim::option);
}

Progress Sender::after_answering(Windows& windows) const {
    const bool must_stay = command_.stay_until_closed && windows.is_open(*answered_);
    return must_stay ? Progress::waiting : Progress::acted;
}

}  // namespace foliant::sender
