#pragma once

#include "platform/clock.h"

namespace foliant::platform::win32 {

/// The system's clock. Hosts print in the background here, so settling is a sleep of its full length.
class WindowsClock : public Clock {
  public:
    void sleep(std::uint32_t milliseconds) override;
    void settle(std::uint32_t milliseconds) override;
    float seconds_since_midnight() override;
    std::uint64_t random_seed() override;
    void pump_messages() override;
};

}  // namespace foliant::platform::win32
