#include "hosts/web/devtools.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <nlohmann/json.hpp>
#include <poll.h>
#include <unistd.h>
#include <utility>

#include "hosts/web/capture_error.h"

namespace foliant::hosts::web {

using nlohmann::json;

namespace {

[[noreturn]] void fail_as_ended() {
    throw CaptureError("the browser has ended by itself");
}

/// Whether something can be read by then.
bool wait_for_input(int descriptor, Deadline deadline) {
    while (true) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd waited{descriptor, POLLIN, 0};
        const int ready = ::poll(&waited, 1, static_cast<int>(std::clamp<long>(left.count(), 0, 60'000)));
        if (ready > 0) return true;
        if (ready == 0 && std::chrono::steady_clock::now() >= deadline) return false;
    }
}

/// A browser that has ended is told by an error, not by a signal.
class PipeSignalHeld {
  public:
    PipeSignalHeld() : former_(std::signal(SIGPIPE, SIG_IGN)) {}
    PipeSignalHeld(const PipeSignalHeld&) = delete;
    PipeSignalHeld& operator=(const PipeSignalHeld&) = delete;
    ~PipeSignalHeld() { std::signal(SIGPIPE, former_); }

  private:
    void (*former_)(int);
};

void write_all(int descriptor, std::string_view bytes) {
    const PipeSignalHeld held;
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) fail_as_ended();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace

DevTools::DevTools(Browser& browser, OnEvent on_event) : browser_(browser), on_event_(std::move(on_event)) {}

void DevTools::send(const std::string& name, const json& parameters) {
    json message{{"id", ++last_call_}, {"method", name}, {"params", parameters}};
    if (!page_.empty()) message["sessionId"] = page_;
    std::string text = message.dump(-1, ' ', false, json::error_handler_t::replace);
    text += '\0';
    write_all(browser_.input(), text);
}

json DevTools::call(const std::string& name, const json& parameters, Deadline deadline) {
    send(name, parameters);
    const int number = last_call_;
    json message;
    while (receive(message, deadline)) {
        if (message.value("id", 0) != number) {
            tell(message);
            continue;
        }
        if (!message.contains("error")) return message.value("result", json::object());
        throw CallRefused("the browser says: " + message["error"].value("message", std::string("no")));
    }
    throw NoAnswer("it has not come in time");
}

void DevTools::tell(const json& message) {
    if (message.contains("method")) on_event_(message["method"], message.value("params", json::object()));
}

/// Messages end with a zero byte.
bool DevTools::receive(json& message, Deadline deadline) {
    std::size_t end = 0;
    std::size_t searched = 0;
    while ((end = received_.find('\0', searched)) == std::string::npos) {
        searched = received_.size();
        if (!wait_for_input(browser_.output(), deadline)) return false;
        received_.resize(searched + (std::size_t{1} << 18U));
        const ssize_t got =
            ::read(browser_.output(), received_.data() + searched, received_.size() - searched);
        received_.resize(searched + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0 || (got < 0 && errno != EINTR)) fail_as_ended();
    }
    message = json::parse(std::string_view(received_).substr(0, end), nullptr, false);
    received_.erase(0, end + 1);
    if (!message.is_object()) throw CaptureError("the browser says what cannot be understood");
    return true;
}

}  // namespace foliant::hosts::web
