#pragma once

#include <cstdint>
#include <string>

namespace foliant::platform {

/// A top-level window; 0 is none.
using WindowHandle = std::intptr_t;

/// The windows of other programs, and the message box of this one.
class WindowManager {
  public:
    virtual ~WindowManager() = default;

    /// The top-level window with that caption, whatever its class; captions are compared without regard to
    /// case. 0 when there is none.
    virtual WindowHandle find_window(const std::string& caption) = 0;

    /// Sends WM_CLOSE, with `text` as its second parameter, and returns when the window has handled it.
    virtual void close_window(WindowHandle window, const std::string& text) = 0;

    /// Types a text into the active window, as its user would. Every character stands for itself; none calls
    /// for a key combination. Returns when the keys are queued: a window that becomes active before they are
    /// handled gets them. Raises 70 when the system refuses them.
    virtual void type_text(const std::string& text) = 0;
    /// Presses Enter in the active window, after what was typed before; likewise.
    virtual void press_enter() = 0;

    /// Shows a message and returns when it was closed. `style` is the sum of the system's message box
    /// numbers.
    virtual void message_box(const std::string& prompt, const std::string& title, std::uint32_t style) = 0;
};

}  // namespace foliant::platform
