#include "engines/event_relay.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace foliant::engines {
namespace {

/// Notification names as Adobe's Distiller API reference gives them, beside the component's events.
constexpr std::array<std::pair<std::string_view, std::string_view>, 6> relayed{{
    {"OnJobStart", "JobStart"},
    {"OnJobDone", "JobDone"},
    {"OnJobFail", "JobFail"},
    {"OnLogMessage", "LogMessage"},
    {"OnPercentDone", "PercentDone"},
    {"OnPageNumber", "PageNumber"},
}};

}  // namespace

void EventRelay::notify(std::string_view notification, std::span<const automation::Value> arguments) {
    const auto row = std::find_if(relayed.begin(), relayed.end(),
                                  [&](const auto& candidate) { return candidate.first == notification; });
    if (row == relayed.end()) return;
    const std::vector<automation::Value> copies(arguments.begin(), arguments.end());
    component_.notify(row->second, copies);
}

}  // namespace foliant::engines
