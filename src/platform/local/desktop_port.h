#pragma once

#include <utility>

#include "platform/local/desktop.h"

namespace foliant::platform::local {

/// The desktop as its senders see it.
///
/// Acts are noted and the host is told of them when the sender has returned: a sender does not wait for what
/// a program does next.
class Desktop::Port : public sender::Windows {
  public:
    explicit Port(Desktop& desktop) : desktop_(desktop) {}

    std::vector<sender::TopLevel> top_level() override;
    std::vector<sender::Control> controls(sender::WindowId window) override;
    bool is_open(sender::WindowId window) override;
    bool set_text(sender::WindowId control, const std::string& text) override;
    bool tick(sender::WindowId check_box) override;
    bool press(sender::WindowId push_button) override;
    bool confirm(sender::WindowId window) override;
    bool claim(sender::WindowId window, sender::Claim act) override;
    bool is_claimed(sender::WindowId window, sender::Claim act) override;
    sender::Milliseconds now() override;
    /// Nobody waits here: what has to happen happens between two looks.
    void sleep_for(sender::Milliseconds) override {}

    /// Puts a text into the first edit control that takes any; without one nothing happens.
    void type(const Shown& shown, const std::string& text);
    void press_enter(const Shown& shown);

    /// Whether an act changed something since this was asked last.
    bool take_changed() { return std::exchange(changed_, false); }

  private:
    struct Found {
        Shown* shown = nullptr;
        std::size_t index = 0;
        hosts::Control* control = nullptr;
    };

    Shown* find_dialog(sender::WindowId window) const;
    Found find_control(sender::WindowId control) const;
    void close(Shown& shown, bool accepted);

    Desktop& desktop_;
    bool changed_ = false;
};

}  // namespace foliant::platform::local
