#pragma once

#include <cstdint>

namespace foliant::platform {

/// Waiting, telling the time, and letting the caller's thread handle what is waiting for it.
class Clock {
  public:
    virtual ~Clock() = default;

    /// Waits that many milliseconds.
    virtual void sleep(std::uint32_t milliseconds) = 0;

    /// Gives a host that works in the background, on a file that it prints or on what it shows, that many
    /// milliseconds to go on. Where every host has finished when its call returns, this takes no time.
    virtual void settle(std::uint32_t milliseconds) = 0;

    /// Seconds since midnight; starts again at 0 at midnight.
    virtual float seconds_since_midnight() = 0;

    /// A number from the clock to seed a random generator with; two calls hardly ever give the same one.
    virtual std::uint64_t random_seed() = 0;

    /// Handles the messages that are waiting for the caller's thread. Other calls into the component may
    /// happen meanwhile.
    virtual void pump_messages() = 0;

    /// The same, for a caller who does nothing else until something has happened, and calls it over and over.
    virtual void pump_while_waiting() { pump_messages(); }
};

}  // namespace foliant::platform
