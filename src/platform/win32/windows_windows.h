#pragma once

#include "platform/window_manager.h"

namespace foliant::platform::win32 {

/// The desktop's windows, through the ANSI calls.
class WindowsWindows : public WindowManager {
  public:
    WindowHandle find_window(const std::string& caption) override;
    void close_window(WindowHandle window, const std::string& text) override;
    void type_text(const std::string& text) override;
    void press_enter() override;
    void message_box(const std::string& prompt, const std::string& title, std::uint32_t style) override;
};

}  // namespace foliant::platform::win32
