#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/machine.h"
#include "platform/window_manager.h"
#include "sender/sender.h"
#include "sender/windows_port.h"

namespace foliant::platform::local {

/// A desktop inside the process: hosts put up dialogs on it, and started senders answer them with the
/// decisions that the sender program makes on real windows. There is no screen and no person.
class Desktop : public WindowManager {
  public:
    /// Takes over a message box; may be empty, then nobody sees it.
    using MessageBox =
        std::function<void(const std::string& prompt, const std::string& title, std::uint32_t style)>;

    explicit Desktop(MessageBox message_box = {});
    ~Desktop() override;

    /// Starts a sender; it waits for its dialog until it has acted or its time limit is over.
    void start_sender(sender::Command command);

    /// Puts up a dialog and lets the senders act on it, in the order in which they were started, until it is
    /// closed. A push button closes its dialog; Enter presses the default button. Dialogs that `on_click`
    /// puts up lie above and come first. Raises 445, naming the dialog, as soon as no sender has anything
    /// more to do.
    void show(hosts::Dialog& dialog);

    /// Puts up a window without controls, such as a viewer's. When somebody tells it to close it goes away,
    /// and `on_close` (may be empty) is told.
    hosts::HostWindow open_window(std::string caption, std::function<void()> on_close);
    /// Takes a window away, without telling anybody; it may be gone already.
    void close_window(hosts::HostWindow window);

    WindowHandle find_window(const std::string& caption) override;
    /// Tells a window to close, which it does; a dialog as if its user had cancelled it.
    void close_window(WindowHandle window, const std::string& text) override;
    /// What is typed waits for the next dialog and goes into its first edit control, in place of what stands
    /// there. Enter presses the default button. Keys that are left go to the dialog after that.
    void type_text(const std::string& text) override { keys_.emplace_back(text); }
    void press_enter() override { keys_.emplace_back(std::nullopt); }
    void message_box(const std::string& prompt, const std::string& title, std::uint32_t style) override;

  private:
    class Port;
    friend class Port;

    struct Shown {
        std::uintptr_t number = 0;
        hosts::Dialog* dialog = nullptr;
        bool open = true;
        std::vector<std::size_t> clicks;  ///< Of which the host has not been told yet.
        std::set<sender::Claim> claims;
    };
    struct Window {
        std::uintptr_t number = 0;
        std::string caption;
        std::function<void()> on_close;
    };

    void type_waiting_keys(Shown& shown);
    /// Lets every sender look once. Whether anything was done.
    bool step_senders();
    void tell_clicks(Shown& shown);
    [[noreturn]] void refuse(const hosts::Dialog& dialog) const;

    MessageBox message_box_;
    std::unique_ptr<Port> port_;
    std::list<sender::Sender> senders_;  ///< One may be added while they are gone through.
    std::vector<Shown*> dialogs_;        ///< Topmost first.
    std::vector<Window> windows_;
    std::deque<std::optional<std::string>> keys_;  ///< Nobody's yet; nothing is Enter.
    std::uintptr_t last_number_ = 0;
};

}  // namespace foliant::platform::local
