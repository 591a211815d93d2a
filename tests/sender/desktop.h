#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "sender/sender.h"
#include "sender/windows_port.h"

namespace foliant::sender::test {

class Desktop;

/// A dialog to be shown on the test desktop. Its controls are listed in tab order; edit controls and boxes
/// are called "Edit 1", "Edit 2", ... in the transcript, buttons by their label.
class Dialog {
  public:
    explicit Dialog(std::string caption) : caption_(std::move(caption)) {}

    Dialog& edit(const std::string& window_class = "Edit");
    Dialog& disabled_edit();
    Dialog& box(const std::string& label, bool ticked = false);
    Dialog& group(const std::string& label);
    Dialog& button(const std::string& label);
    Dialog& default_button(const std::string& label);
    /// The edit control added last takes input while the box added last is ticked.
    Dialog& edit_of_box();
    /// The control added last has the focus.
    Dialog& focus();
    /// The control added last is not shown.
    Dialog& hidden();
    /// Its program overlooks the first tick.
    Dialog& overlooks_a_tick();
    /// Stays up that long after it was answered.
    Dialog& closing_takes(Milliseconds time);
    /// It is a program's frame and no dialog.
    Dialog& frame();
    /// What its program does once it was answered and has closed: usually shows the next dialog.
    Dialog& then(std::function<void(Desktop&)> next);

  private:
    friend class Desktop;
    struct Item {
        Control control;
        std::string name;
        int enabled_by = -1;  ///< Index of a box, or -1.
    };

    Dialog& add(const std::string& window_class, const std::string& name, ControlKind kind);

    std::string caption_;
    std::vector<Item> items_;
    Milliseconds closing_takes_{0};
    std::function<void(Desktop&)> then_;
    int edits_ = 0;
    bool overlooks_a_tick_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    bool is_dialog_ = true;
};

/// A desktop on which the clock moves only when slept on, and which keeps a transcript of all that was done
/// to its dialogs: one line each, with the time in milliseconds.
class Desktop : public Windows {
  public:
    WindowId show(Dialog dialog);
    void show_at(Milliseconds time, const Dialog& dialog);
    void at(Milliseconds time, std::function<void()> event);
    void set_enabled(WindowId window, bool enabled);
    void set_visible(WindowId window, bool visible);
    void set_control_enabled(WindowId window, const std::string& name, bool enabled);
    /// Takes a dialog away as if its user had cancelled it.
    void cancel(WindowId window);
    void end_starter() { starter_has_ended_ = true; }
    /// Cancels all dialogs.
    void cancel_all();

    std::string transcript() const { return transcript_; }
    /// The transcript without its times, for tests that are not about them.
    std::string deeds() const;
    bool is_empty() const { return open_.empty(); }

    /// Called before every call of the port, with its number from 1; not within itself. Returning true makes
    /// an acting call fail.
    std::function<bool(int)> before_call;

    std::vector<TopLevel> top_level() override;
    std::vector<Control> controls(WindowId window) override;
    bool is_open(WindowId window) override;
    bool set_text(WindowId control, const std::string& text) override;
    bool tick(WindowId check_box) override;
    bool press(WindowId push_button) override;
    bool confirm(WindowId window) override;
    bool claim(WindowId window, Claim act) override;
    bool is_claimed(WindowId window, Claim act) override;
    bool starter_has_ended() override { return starter_has_ended_; }
    Milliseconds now() override { return now_; }
    void sleep_for(Milliseconds time) override;

  private:
    struct Found {
        WindowId window{};
        Dialog::Item* item = nullptr;
    };

    bool call_fails();
    Found find(WindowId control);
    bool takes_input(const Dialog& dialog, const Dialog::Item& item) const;
    void note(WindowId window, const std::string& deed);
    void answer(WindowId window);
    void close(WindowId window);

    std::map<WindowId, Dialog> open_;
    std::vector<WindowId> order_;  ///< Topmost first.
    std::set<WindowId> closing_;
    std::set<std::pair<WindowId, Claim>> claims_;
    std::multimap<Milliseconds, std::function<void()>> events_;
    std::string transcript_;
    Milliseconds now_{0};
    std::uintptr_t last_id_ = 0;
    int calls_ = 0;
    bool starter_has_ended_ = false;
    bool in_hook_ = false;
};

/// Steps senders in turn, as processes beside each other would run, every 100 ms of the desktop's clock until
/// none is waiting. Their outcomes, in their order.
std::vector<Progress> play(Desktop& desktop, std::vector<Sender>& senders);

/// Senders for these command tails, with the ordinary timing.
std::vector<Sender> senders_for(const std::vector<std::string>& tails);

/// The dialogs of other programs that the library's commands are made for.
Dialog open_dialog();
Dialog password_dialog();
Dialog save_dialog();
Dialog password_settings(bool ticked = false);
Dialog confirm_password();
Dialog notice();
/// Password settings, confirmation and notice in turn, as protecting a document brings them up.
Dialog security_sequence(bool ticked = false);

}  // namespace foliant::sender::test
