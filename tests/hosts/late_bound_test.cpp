#include "hosts/late_bound.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace foliant::hosts {
namespace {

using automation::Missing;
using automation::named;
using automation::Value;

using tests::error_of;

const std::vector<std::string_view> parameters = {"FileName", "ReadOnly", "Revert"};

TEST(LateBound, PutsArgumentsInTheOrderOfTheParameters) {
    EXPECT_EQ(bind({}, parameters), Bound({Missing(), Missing(), Missing()}));
    EXPECT_EQ(bind({"a", named("revert", true)}, parameters), Bound({"a", Missing(), true}));
    EXPECT_EQ(bind({named("Revert", true), named("FILENAME", "a")}, parameters),
              Bound({"a", Missing(), true}));
}

TEST(LateBound, RefusesArgumentsThatFitNoParameter) {
    EXPECT_EQ(error_of([] { bind({"a", "b", "c", "d"}, parameters); }).number(), 450);
    EXPECT_EQ(error_of([] { bind({named("Colour", "red")}, parameters); }).number(), 448);
}

TEST(LateBound, ReachesMembersInAnyCase) {
    const auto object = std::make_shared<LateBound>("Microsoft Word");
    std::int32_t size = 1;
    object->add_property(
        "Size", [&] { return size; }, [&](const Value& value) { size = *value.if_holds<std::int32_t>(); });
    object->add_property("Fixed", [] { return "always"; });
    object->add_method("Twice", {"Number"},
                       [](const Bound& given) { return 2 * *given[0].if_holds<std::int32_t>(); });
    const Value late = object;
    late.set("SIZE", std::int32_t{5});
    EXPECT_EQ(late.get("size"), Value(std::int32_t{5}));
    EXPECT_EQ(late.call("twice", {std::int32_t{4}}), Value(std::int32_t{8}));
    EXPECT_EQ(late.get("Twice", {std::int32_t{4}}), Value(std::int32_t{8}));
    EXPECT_EQ(error_of([&] { late.set("Fixed", "never"); }).number(), 438);
    EXPECT_EQ(error_of([&] { late.get("Colour"); }).number(), 438);
}

TEST(LateBound, NamesTheApplicationThatLacksAMember) {
    const Value late = std::make_shared<LateBound>("Microsoft Excel");
    EXPECT_EQ(error_of([&] { late.get("Colour"); }).description(),
              "Microsoft Excel has no member \"Colour\" here, or none that this stand-in knows.");
}

}  // namespace
}  // namespace foliant::hosts
