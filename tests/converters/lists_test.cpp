#include "converters/lists.h"

#include <gtest/gtest.h>
#include <vector>

#include "automation/error.h"

namespace foliant::converters {
namespace {

using automation::Array;
using automation::Error;
using automation::Value;

std::vector<Value> visited(const Value& list) {
    std::vector<Value> items;
    for_each_item(list, [&](const Value& item) { items.push_back(item); });
    return items;
}

Array array_of(std::size_t count, std::int32_t lower_bound) {
    Array array;
    array.lower_bound = lower_bound;
    array.items.resize(count, Value("x"));
    return array;
}

/// The number of the error, and how many items were visited before it.
std::pair<std::int32_t, int> failure_of(const Value& list) {
    int count = 0;
    try {
        for_each_item(list, [&](const Value&) { ++count; });
    } catch (const Error& error) {
        return {error.number(), count};
    }
    return {0, count};
}

TEST(Lists, AreWalkedFromTheLowerToTheUpperBound) {
    for (const std::int32_t lower_bound : {-1, 0, 1, 5}) {
        Array array = array_of(0, lower_bound);
        array.items = {"a", std::int16_t{2}, "c"};
        EXPECT_EQ(visited(array), (std::vector<Value>{"a", std::int16_t{2}, "c"}));
    }
}

TEST(Lists, AnEmptyOneHasNothingToVisit) {
    EXPECT_TRUE(visited(array_of(0, 0)).empty());
}

TEST(Lists, WhatIsNoArrayIsATypeMismatch) {
    for (const Value& wrong : {Value("a.ps"), Value(), Value(automation::Missing{})})
        EXPECT_EQ(failure_of(wrong), std::pair(13, 0));
}

TEST(Lists, TheIndexHasSixteenBits) {
    EXPECT_EQ(failure_of(array_of(32767, 1)), std::pair(0, 32767));
    EXPECT_EQ(failure_of(array_of(32768, 0)), std::pair(6, 0));
    EXPECT_EQ(failure_of(array_of(2, 32767)), std::pair(6, 0));
    EXPECT_EQ(failure_of(array_of(2, -32769)), std::pair(6, 0));
}

TEST(Lists, AFailureEndsTheWalk) {
    int count = 0;
    const auto fail_at_second = [&](const Value&) {
        if (++count == 2) throw Error(automation::RuntimeError::disk_full);
    };
    EXPECT_THROW(for_each_item(array_of(5, 0), fail_at_second), Error);
    EXPECT_EQ(count, 2);
}

}  // namespace
}  // namespace foliant::converters
