#pragma once

#include <chrono>

#include "platform/clock.h"

namespace foliant::platform::local {

/// The real clock. Hosts on this machine have finished when their call returns, so `settle` takes no time.
class LocalClock : public Clock {
  public:
    void sleep(std::uint32_t milliseconds) override;
    void settle(std::uint32_t milliseconds) override;
    float seconds_since_midnight() override;
    std::uint64_t random_seed() override;

    /// There are no messages to handle.
    void pump_messages() override {}
    /// Naps for some milliseconds, so that waiting keeps no core busy; the first few calls return at once.
    void pump_while_waiting() override;

  private:
    using Steady = std::chrono::steady_clock;

    Steady::time_point last_pump_{};
    int pumps_in_a_row_ = 0;
    std::uint64_t seeds_given_ = 0;
};

}  // namespace foliant::platform::local
