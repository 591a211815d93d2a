#include "platform/local/local_clock.h"

#include <chrono>
#include <gtest/gtest.h>
#include <set>
#include <sys/resource.h>

namespace foliant::platform::local::test {
namespace {

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

TEST(LocalClock, SettlingTakesNoTime) {
    LocalClock clock;
    const auto begin = Steady::now();
    clock.settle(60000);
    EXPECT_LT(Steady::now() - begin, 1s);
}

TEST(LocalClock, SleepsAsLongAsItIsTold) {
    LocalClock clock;
    const auto begin = Steady::now();
    clock.sleep(50);
    EXPECT_GE(Steady::now() - begin, 50ms);
}

TEST(LocalClock, GivesManyDifferentSeeds) {
    std::set<std::uint64_t> seeds;
    for (int object = 0; object < 10; ++object) {
        LocalClock clock;
        for (int i = 0; i < 1000; ++i)
            seeds.insert(clock.random_seed());
    }
    EXPECT_EQ(seeds.size(), 10000U);
}

TEST(LocalClock, FirstPumpsReturnAtOnceAndEndlessOnesNap) {
    LocalClock clock;
    const auto begin = Steady::now();
    clock.pump_while_waiting();
    clock.pump_while_waiting();
    EXPECT_LT(Steady::now() - begin, 4ms);
    for (int i = 0; i < 40; ++i)
        clock.pump_while_waiting();
    EXPECT_GE(Steady::now() - begin, 150ms);
}

TEST(LocalClock, PumpsBetweenStepsTakeNoTime) {
    LocalClock clock;
    const auto begin = Steady::now();
    for (int i = 0; i < 1000; ++i)
        clock.pump_messages();
    EXPECT_LT(Steady::now() - begin, 100ms);
}

TEST(LocalClock, WaitingForEverKeepsNoCoreBusy) {
    LocalClock clock;
    const auto cpu = [] {
        rusage used{};
        ::getrusage(RUSAGE_THREAD, &used);
        return std::chrono::seconds(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
               std::chrono::microseconds(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
    };
    const auto before = cpu();
    const auto end = Steady::now() + 300ms;
    while (Steady::now() < end)
        clock.pump_while_waiting();
    EXPECT_LT(cpu() - before, 60ms);
}

}  // namespace
}  // namespace foliant::platform::local::test
