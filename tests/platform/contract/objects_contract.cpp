// What classes of other programs and their objects promise.

#include <gtest/gtest.h>
#include <optional>

#include "platform/contract/world.h"

namespace foliant::platform::contract {
namespace {

using automation::Value;

TEST_P(PortContract, AClassThatNobodyHasRaises429) {
    EXPECT_EQ(tests::error_number([&] { ports.servers.create("No.SuchClass"); }), 429);
}

TEST_P(PortContract, ACollectionGivesItsElementsInOrderAndStaysAtItsEnd) {
    const auto elements = world->make_collection({"b", "a", "c"}).enumerate();
    for (const char* text : {"b", "a", "c"})
        EXPECT_EQ(elements->next(), Value(text));
    EXPECT_EQ(elements->next(), std::nullopt);
    EXPECT_EQ(elements->next(), std::nullopt);
}

TEST_P(PortContract, AnEmptyCollectionGivesNoElements) {
    EXPECT_EQ(world->make_collection({}).enumerate()->next(), std::nullopt);
}

TEST_P(PortContract, TwoWalksThroughACollectionDoNotDisturbEachOther) {
    const Value collection = world->make_collection({"a", "b"});
    const auto one = collection.enumerate();
    EXPECT_EQ(one->next(), Value("a"));
    const auto other = collection.enumerate();
    EXPECT_EQ(other->next(), Value("a"));
    EXPECT_EQ(one->next(), Value("b"));
}

TEST_P(PortContract, ACollectionThatIsLeftEarlyIsLetGo) {
    const long before = automation::Object::live_objects();
    {
        const auto elements = world->make_collection({"a", "b"}).enumerate();
        elements->next();
    }
    EXPECT_EQ(automation::Object::live_objects(), before);
}

}  // namespace
}  // namespace foliant::platform::contract
