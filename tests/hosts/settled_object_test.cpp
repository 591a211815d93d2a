#include "hosts/settled_object.h"

#include <gtest/gtest.h>

#include "automation/value.h"
#include "support/error_of.h"

namespace foliant::hosts {
namespace {

using automation::Value;

Value words() {
    auto object = std::make_shared<SettledObject>("Test");
    object->settle("GetNumText", std::int32_t{2});
    object->settle_texts("GetText", {"one two", {4, 7}});
    return automation::ObjectPtr(object);
}

TEST(SettledObject, AnswersWithItsResults) {
    EXPECT_EQ(words().call("GetNumText"), Value(std::int32_t{2}));
    EXPECT_EQ(words().call("gettext", {std::int32_t{1}}), Value("two"));
    EXPECT_EQ(words().call("GetText", {std::int16_t{0}}), Value("one "));
    EXPECT_EQ(words().call("GetText", {"1"}), Value("two"));
}

TEST(SettledObject, RaisesForAnIndexThatItDoesNotHave) {
    for (const std::int32_t index : {-1, 2})
        EXPECT_EQ(tests::error_number([&] { words().call("GetText", {index}); }), 9) << index;
}

TEST(SettledObject, KnowsOnlyCallsAsTheyAreMade) {
    SettledResults results;
    results.add({"Text", Texts("a", {1})});
    EXPECT_TRUE(results.find(automation::Access::get, "TEXT", {Value(std::int32_t{0})}));
    EXPECT_FALSE(results.find(automation::Access::get, "Text", {}));
    EXPECT_FALSE(results.find(automation::Access::get, "Text", {Value("0")}));
    EXPECT_FALSE(results.find(automation::Access::set, "Text", {Value(std::int32_t{0})}));
    EXPECT_FALSE(results.find(automation::Access::get, "Other", {Value(std::int32_t{0})}));
}

}  // namespace
}  // namespace foliant::hosts
