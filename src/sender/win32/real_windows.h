#pragma once

#include "sender/win32/starter.h"
#include "sender/windows_port.h"

namespace foliant::sender::win32 {

/// The windows of the desktop that this process runs on, of whatever program.
///
/// Everything is asked and done by messages with a time limit of one second; none is sent to a window that
/// its program does not answer for. A claim is a property of the window, so it goes when the window does.
class RealWindows : public Windows {
  public:
    std::vector<TopLevel> top_level() override;
    std::vector<Control> controls(WindowId window) override;
    bool is_open(WindowId window) override;
    bool set_text(WindowId control, const std::string& text) override;
    bool tick(WindowId check_box) override;
    bool press(WindowId push_button) override;
    bool confirm(WindowId window) override;
    bool claim(WindowId window, Claim act) override;
    bool is_claimed(WindowId window, Claim act) override;
    bool starter_has_ended() override { return starter_.has_ended(); }
    Milliseconds now() override;
    void sleep_for(Milliseconds time) override;

  private:
    Starter starter_;
};

}  // namespace foliant::sender::win32
