#pragma once

#include <chrono>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "hosts/web/browser.h"

namespace foliant::hosts::web {

using Deadline = std::chrono::steady_clock::time_point;

/// Told an event: its name and what comes with it.
using OnEvent = std::function<void(const std::string& name, const nlohmann::json& facts)>;

/// A conversation with a browser by its own protocol for developers: calls with results, and events.
class DevTools {
  public:
    /// `browser` outlives this.
    DevTools(Browser& browser, OnEvent on_event);

    /// Later calls are about that page of the browser's.
    void talk_to(std::string page) { page_ = std::move(page); }

    /// Makes a call and waits for its result; events that come meanwhile are told. Throws CallRefused when the
    /// browser says no, NoAnswer when it has not answered by then, CaptureError when it ends.
    nlohmann::json call(const std::string& name, const nlohmann::json& parameters, Deadline deadline);

    /// Makes a call whose result nobody waits for.
    void send(const std::string& name, const nlohmann::json& parameters);

  private:
    bool receive(nlohmann::json& message, Deadline deadline);
    void tell(const nlohmann::json& message);

    Browser& browser_;
    OnEvent on_event_;
    std::string page_;
    std::string received_;
    int last_call_ = 0;
};

}  // namespace foliant::hosts::web
