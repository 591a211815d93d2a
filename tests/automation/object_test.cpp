#include "automation/object.h"

#include <gtest/gtest.h>
#include <string>

#include "automation/coerce.h"
#include "automation/error.h"

namespace foliant::automation {
namespace {

/// A collection that knows its count and its items, and notes what it is asked for.
class Shelf : public Object {
  public:
    Value invoke(Access access, std::string_view member, const Arguments& arguments) override {
        if (access != Access::get || (member != "Count" && member != "Item"))
            throw Error(RuntimeError::no_such_member);
        asked += std::string(member);
        if (member == "Count") return count;
        const std::int32_t number = to_int32(arguments.at(0).value);
        asked += std::to_string(number);
        if (number == broken) throw Error(1004, "Shelf", "item is broken");
        return "item " + std::to_string(number);
    }

    std::int16_t count = 0;
    std::int32_t broken = 0;
    std::string asked;
};

class Stone : public Object {
    Value invoke(Access, std::string_view, const Arguments&) override {
        throw Error(RuntimeError::no_such_member);
    }
};

TEST(Enumeration, GivesTheItemsFrom1ToTheCountAndStaysAtItsEnd) {
    const auto shelf = std::make_shared<Shelf>();
    shelf->count = 2;
    const auto items = shelf->enumerate();
    EXPECT_EQ(items->next(), Value("item 1"));
    EXPECT_EQ(items->next(), Value("item 2"));
    EXPECT_EQ(items->next(), std::nullopt);
    EXPECT_EQ(items->next(), std::nullopt);
    EXPECT_EQ(shelf->asked, "CountItem1Item2");
}

TEST(Enumeration, AsksForNoItemBeforeItsTurn) {
    const auto shelf = std::make_shared<Shelf>();
    shelf->count = 3;
    const auto items = Value(shelf).enumerate();
    EXPECT_EQ(shelf->asked, "Count");
    items->next();
    EXPECT_EQ(shelf->asked, "CountItem1");
}

TEST(Enumeration, OfNothingHasNoElements) {
    EXPECT_EQ(std::make_shared<Shelf>()->enumerate()->next(), std::nullopt);
}

TEST(Enumeration, RaisesWhatAnItemRaisesAndStaysThere) {
    const auto shelf = std::make_shared<Shelf>();
    shelf->count = 2;
    shelf->broken = 1;
    const auto items = shelf->enumerate();
    EXPECT_THROW(items->next(), Error);
    shelf->broken = 0;
    EXPECT_EQ(items->next(), Value("item 1"));
}

TEST(Enumeration, KeepsItsCollectionAlive) {
    auto shelf = std::make_shared<Shelf>();
    shelf->count = 1;
    const auto items = shelf->enumerate();
    shelf.reset();
    EXPECT_EQ(items->next(), Value("item 1"));
}

TEST(Enumeration, OfWhatIsNoCollectionRaises438) {
    try {
        std::make_shared<Stone>()->enumerate();
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 438);
    }
}

}  // namespace
}  // namespace foliant::automation
