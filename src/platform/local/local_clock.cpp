#include "platform/local/local_clock.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <thread>
#include <unistd.h>

namespace foliant::platform::local {

namespace {

constexpr float seconds_per_day = 86400;
constexpr int pumps_without_nap = 4;
constexpr std::chrono::milliseconds nap{5};
/// A caller that did something else for that long between two pumps is not waiting.
constexpr std::chrono::milliseconds pause_of_a_busy_caller{20};

/// Spreads the bits of a number over all 64, so that neighbouring moments give unlike seeds.
std::uint64_t scattered(std::uint64_t bits) noexcept {
    bits ^= bits >> 30U;
    bits *= 0xBF58476D1CE4E5B9U;
    bits ^= bits >> 27U;
    bits *= 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
}

}  // namespace

void LocalClock::sleep(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void LocalClock::settle(std::uint32_t) {}

float LocalClock::seconds_since_midnight() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    ::localtime_r(&now.tv_sec, &local);
    const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    const auto exact =
        static_cast<float>(static_cast<double>(seconds) + static_cast<double>(now.tv_nsec) / 1e9);
    // The last moments of a day (and a leap second) would round up to a time that no day has.
    return std::min(exact, std::nextafter(seconds_per_day, 0.0F));
}

std::uint64_t LocalClock::random_seed() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const auto moment =
        static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
    const auto process = static_cast<std::uint64_t>(::getpid()) << 32U;
    return scattered(scattered(moment) ^ process ^ ++seeds_given_);
}

void LocalClock::pump_while_waiting() {
    const bool waiting = Steady::now() - last_pump_ < pause_of_a_busy_caller;
    pumps_in_a_row_ = waiting ? pumps_in_a_row_ + 1 : 1;
    if (pumps_in_a_row_ > pumps_without_nap) std::this_thread::sleep_for(nap);
    last_pump_ = Steady::now();
}

}  // namespace foliant::platform::local
