#pragma once

#include <span>
#include <string_view>

#include "automation/object.h"

namespace foliant::engines {

/// Forwards Distiller's notifications, each at once, as the component's event of the same meaning. Arguments
/// are copied, so that what a client does to them changes nothing in the job. Notifications of other names
/// are not passed on.
class EventRelay : public automation::EventSink {
  public:
    /// `component` outlives the relay.
    explicit EventRelay(automation::EventSink& component) : component_(component) {}

    void notify(std::string_view notification, std::span<const automation::Value> arguments) override;

  private:
    automation::EventSink& component_;
};

}  // namespace foliant::engines
