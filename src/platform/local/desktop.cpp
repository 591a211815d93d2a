#include "platform/local/desktop.h"

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"
#include "platform/local/desktop_port.h"

namespace foliant::platform::local {

using automation::equal_ignoring_case;
using automation::RuntimeError;
using sender::Milliseconds;

namespace {

/// Dialogs here are complete when they are put up, and senders look in the order in which they were started:
/// the one that ticks an option comes before the one that relies on it.
sender::Timing timing() {
    sender::Timing timing;
    timing.settle = Milliseconds{0};
    timing.courtesy = Milliseconds{0};
    return timing;
}

}  // namespace

Desktop::Desktop(MessageBox message_box)
    : message_box_(std::move(message_box)), port_(std::make_unique<Port>(*this)) {}

Desktop::~Desktop() = default;

void Desktop::start_sender(sender::Command command) {
    senders_.emplace_back(std::move(command), timing());
}

void Desktop::show(hosts::Dialog& dialog) {
    Shown shown{.number = ++last_number_, .dialog = &dialog, .open = true, .clicks = {}, .claims = {}};
    dialogs_.insert(dialogs_.begin(), &shown);
    const auto take_down = [this](Shown* gone) { std::erase(dialogs_, gone); };
    const std::unique_ptr<Shown, decltype(take_down)> up(&shown, take_down);
    type_waiting_keys(shown);
    while (shown.open) {
        if (!step_senders()) refuse(dialog);
    }
    // A sender that sees to it that its dialog closes has come to its end now.
    if (dialogs_.size() == 1) step_senders();
}

void Desktop::type_waiting_keys(Shown& shown) {
    std::string typed;
    while (shown.open && !keys_.empty()) {
        const std::optional<std::string> key = std::move(keys_.front());
        keys_.pop_front();
        if (key)
            port_->type(shown, typed += *key);
        else
            port_->press_enter(shown);
        tell_clicks(shown);
    }
}

bool Desktop::step_senders() {
    bool changed = false;
    // What a host does when it is told of a click may start further senders; they have their turn, too.
    for (sender::Sender& sender : senders_) {
        sender.step(*port_);
        changed = port_->take_changed() || changed;
        if (!dialogs_.empty()) tell_clicks(*dialogs_.front());
    }
    return changed;
}

void Desktop::tell_clicks(Shown& shown) {
    for (const std::size_t control : std::exchange(shown.clicks, {})) {
        if (shown.dialog->on_click) shown.dialog->on_click(*shown.dialog, control);
    }
}

void Desktop::refuse(const hosts::Dialog& dialog) const {
    const bool awaited = std::any_of(senders_.begin(), senders_.end(), [&](const sender::Sender& sender) {
        return equal_ignoring_case(sender.command().caption, dialog.caption);
    });
    const std::string reason =
        awaited ? "the window sender that was started for it found nothing there to act on"
                : "no window sender was started for it, and nobody sits at this machine's screen";
    throw automation::Error(RuntimeError::action_not_supported,
                            "The dialog \"" + dialog.caption + "\" cannot be answered: " + reason + ".");
}

hosts::HostWindow Desktop::open_window(std::string caption, std::function<void()> on_close) {
    windows_.push_back({++last_number_, std::move(caption), std::move(on_close)});
    return last_number_;
}

void Desktop::close_window(hosts::HostWindow window) {
    std::erase_if(windows_, [&](const Window& candidate) { return candidate.number == window; });
}

WindowHandle Desktop::find_window(const std::string& caption) {
    for (const Shown* shown : dialogs_) {
        if (shown->open && equal_ignoring_case(shown->dialog->caption, caption)) {
            return static_cast<WindowHandle>(shown->number);
        }
    }
    const auto found = std::find_if(windows_.begin(), windows_.end(), [&](const Window& window) {
        return equal_ignoring_case(window.caption, caption);
    });
    return found == windows_.end() ? 0 : static_cast<WindowHandle>(found->number);
}

void Desktop::close_window(WindowHandle window, const std::string&) {
    const auto number = static_cast<std::uintptr_t>(window);
    for (Shown* shown : dialogs_) {
        if (shown->number == number) shown->open = false;
    }
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const Window& candidate) { return candidate.number == number; });
    if (found == windows_.end()) return;
    // What is told may open and close windows itself.
    const std::function<void()> on_close = std::move(found->on_close);
    windows_.erase(found);
    if (on_close) on_close();
}

void Desktop::message_box(const std::string& prompt, const std::string& title, std::uint32_t style) {
    if (message_box_) message_box_(prompt, title, style);
}

}  // namespace foliant::platform::local
