#pragma once

#include <atomic>
#include <ole2.h>
#include <string>
#include <thread>

namespace foliant::tests::clients {

/// A window of a client's, as an application has one: when it is told to, it calls back into the component,
/// whatever the component is doing for the same thread just then, and records what it got.
class CallingWindow {
  public:
    explicit CallingWindow(IDispatch& component);
    CallingWindow(const CallingWindow&) = delete;
    CallingWindow& operator=(const CallingWindow&) = delete;
    ~CallingWindow();

    /// Tells it now; it calls when somebody dispatches the message.
    void tell();

    /// Tells it once a line of the record holds a text, so during the wait that comes then.
    void tell_after(std::string text);

  private:
    HWND window_;
    std::thread watcher_;
    std::atomic<bool> over_ = false;
};

}  // namespace foliant::tests::clients
