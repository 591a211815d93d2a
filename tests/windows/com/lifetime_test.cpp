#include <gtest/gtest.h>
#include <ole2.h>
#include <psapi.h>

#include "windows/com/component.h"

namespace foliant::com {
namespace {

TEST(Library, IsUnusedWhenNoObjectAndNoLockIsLeft) {
    const Component component;
    EXPECT_TRUE(component.can_unload());
    {
        const auto object = component.create();
        EXPECT_FALSE(component.can_unload());
    }
    EXPECT_TRUE(component.can_unload());
    const auto factory = component.factory();
    factory->LockServer(TRUE);
    EXPECT_FALSE(component.can_unload());
    factory->LockServer(FALSE);
}

TEST(Library, MakesNoAggregates) {
    const Component component;
    const auto outer = component.create();
    void* object = &object;
    EXPECT_EQ(component.factory()->CreateInstance(outer.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

SIZE_T private_bytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    return counters.PrivateUsage;
}

DWORD handles() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

/// FOLIANT_ROUNDS asks for more, for example 100000.
TEST(Library, RoundsOfCreateCallReleaseLeaveNothing) {
    const char* asked = std::getenv("FOLIANT_ROUNDS");
    const int rounds = asked != nullptr ? std::atoi(asked) : 5000;
    const Component component;
    Outcome outcome;
    const auto round = [&] {
        const auto object = component.create();
        call(*object.get(), L"PrinterName", {}, outcome);
        call(*object.get(), L"CreatePDFfromPS", {value(1L)}, outcome);
    };
    for (int i = 0; i < rounds / 10; ++i)
        round();
    const SIZE_T bytes_before = private_bytes();
    const DWORD handles_before = handles();
    for (int i = 0; i < rounds; ++i)
        round();
    EXPECT_EQ(handles(), handles_before);
    // One leaked reference or text a round would be far more than the heap's own ups and downs.
    EXPECT_LT(private_bytes(), bytes_before + 256U * 1024 + static_cast<SIZE_T>(rounds) * 4);
    EXPECT_TRUE(component.can_unload());
}

}  // namespace
}  // namespace foliant::com
