#include "session/lists.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <utility>
#include <vector>

#include "automation/array_bounds.h"
#include "support/staged_session.h"

namespace foliant::session {
namespace {

using automation::Array;
using automation::Error;
using automation::Value;

using Visit = std::pair<std::int32_t, Value>;

template <class Counter>
std::vector<Visit> visits(const Value& list) {
    std::vector<Visit> all;
    for_each_item<Counter>(
        list, [&](Counter index, const Value& item) { all.emplace_back(std::int32_t{index}, item); });
    return all;
}

Array a_list(std::size_t count, std::int32_t lower_bound) {
    Array array;
    array.lower_bound = lower_bound;
    array.items.resize(count, Value("x"));
    return array;
}

Array from_one(std::vector<Value> items) {
    Array array;
    array.lower_bound = 1;
    array.items = std::move(items);
    return array;
}

/// The number of the error that steps raise, 0 for none.
std::int32_t error_of(const std::function<void()>& steps) {
    try {
        steps();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

/// The number of the error, and how many items were visited before it.
template <class Counter>
std::pair<std::int32_t, int> failure_of(const Value& list) {
    int count = 0;
    const std::int32_t error =
        error_of([&] { for_each_item<Counter>(list, [&](const Value&) { ++count; }); });
    return {error, count};
}

TEST(Lists, AnArrayWithoutBoundsRaises9WhereItsBoundsAreRead) {
    const Value list = automation::array_without_bounds();
    EXPECT_EQ(failure_of<std::int16_t>(list), std::pair(9, 0));
    EXPECT_EQ(failure_of<std::int32_t>(list), std::pair(9, 0));
    EXPECT_EQ(error_of([&] { item_at(list, 0); }), 9);
}

TEST(Lists, AreWalkedFromTheLowerToTheUpperBound) {
    for (const std::int32_t lower : {-1, 0, 1, 5}) {
        Array array = a_list(0, lower);
        array.items = {"a", std::int16_t{2}, "c"};
        const std::vector<Visit> expected{{lower, "a"}, {lower + 1, std::int16_t{2}}, {lower + 2, "c"}};
        EXPECT_EQ(visits<std::int16_t>(array), expected);
        EXPECT_EQ(visits<std::int32_t>(array), expected);
    }
}

TEST(Lists, WhoDoesNotNeedTheIndexIsGivenTheElementAlone) {
    std::vector<Value> items;
    for_each_item<std::int16_t>(from_one({"a", "b"}), [&](const Value& item) { items.push_back(item); });
    EXPECT_EQ(items, (std::vector<Value>{"a", "b"}));
}

TEST(Lists, AnEmptyOneHasNothingToVisit) {
    for (const std::int32_t lower : {0, 1, 5}) {
        EXPECT_TRUE(visits<std::int16_t>(a_list(0, lower)).empty());
        EXPECT_TRUE(visits<std::int32_t>(a_list(0, lower)).empty());
    }
}

TEST(Lists, WhatIsNoArrayIsATypeMismatch) {
    for (const Value& wrong :
         {Value("a.ps"), Value(), Value(automation::Missing{}), Value(std::int16_t{1})}) {
        EXPECT_EQ(failure_of<std::int16_t>(wrong), std::pair(13, 0));
        EXPECT_EQ(failure_of<std::int32_t>(wrong), std::pair(13, 0));
        EXPECT_EQ(error_of([&] { item_at(wrong, 0); }), 13);
    }
}

TEST(Lists, ACounterOfSixteenBitsOverflowsBeforeAnythingIsVisited) {
    EXPECT_EQ(failure_of<std::int16_t>(a_list(32767, 1)), std::pair(0, 32767));
    EXPECT_EQ(failure_of<std::int16_t>(a_list(32768, 0)), std::pair(6, 0));
    EXPECT_EQ(failure_of<std::int16_t>(a_list(2, 32767)), std::pair(6, 0));
    EXPECT_EQ(failure_of<std::int16_t>(a_list(2, -32769)), std::pair(6, 0));
}

TEST(Lists, ACounterOfThirtyTwoBitsGoesOnWhereSixteenEnd) {
    EXPECT_EQ(failure_of<std::int32_t>(a_list(32768, 0)), std::pair(0, 32768));
    EXPECT_EQ(failure_of<std::int32_t>(a_list(2, 32767)), std::pair(0, 2));
    const std::int32_t last = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(visits<std::int32_t>(a_list(2, last - 1)), (std::vector<Visit>{{last - 1, "x"}, {last, "x"}}));
}

TEST(Lists, AFailureEndsTheWalk) {
    int count = 0;
    const auto fail_at_second = [&](const Value&) {
        if (++count == 2) throw Error(automation::RuntimeError::disk_full);
    };
    EXPECT_THROW(for_each_item<std::int16_t>(a_list(5, 0), fail_at_second), Error);
    EXPECT_EQ(count, 2);
}

TEST(Lists, AnArrayIsWalkedAsItWasWhenItsVariableGetsAnotherMeanwhile) {
    Value list = from_one({"a", "b"});
    std::vector<Value> items;
    for_each_item<std::int16_t>(list, [&](const Value& item) {
        items.push_back(item);
        list = Value("no list any more");
    });
    EXPECT_EQ(items, (std::vector<Value>{"a", "b"}));
}

TEST(ParallelArrays, AreReadAtTheIndexOfTheOther) {
    const Value ranges = from_one({"A1:B2", "C3:D4"});
    EXPECT_EQ(item_at(ranges, 1), Value("A1:B2"));
    EXPECT_EQ(item_at(ranges, 2), Value("C3:D4"));
}

TEST(ParallelArrays, OutsideTheirOwnBoundsThereIsNoElement) {
    for (const std::int32_t index : {-1, 0, 3}) {
        EXPECT_EQ(error_of([&] { item_at(from_one({"A1:B2", "C3:D4"}), index); }), 9) << index;
    }
    EXPECT_EQ(error_of([&] { item_at(a_list(0, 0), 0); }), 9);
}

class TemporaryFileList : public tests::StagedSession {
  protected:
    TemporaryFileList() {
        stage.put_file("C:\\Temp\\1.pdf");
        stage.put_file("C:\\Temp\\2.pdf");
    }

    TemporaryFiles files;
};

TEST_F(TemporaryFileList, HasTheIndicesOfItsInputs) {
    files.put(0, "C:\\Temp\\1.pdf");
    files.put(1, "C:\\Temp\\2.pdf");
    EXPECT_EQ(files.list(), Value(Array{0, {"C:\\Temp\\1.pdf", "C:\\Temp\\2.pdf"}, Array::Element::text}));
    EXPECT_EQ(files.size(), 2U);
}

TEST_F(TemporaryFileList, OfInputsFromOneOnHasAnEmptyElementZero) {
    files.put(1, "C:\\Temp\\1.pdf");
    files.put(2, "C:\\Temp\\2.pdf");
    EXPECT_EQ(files.list(),
              Value(Array{0, {"", "C:\\Temp\\1.pdf", "C:\\Temp\\2.pdf"}, Array::Element::text}));
}

TEST_F(TemporaryFileList, CannotGrowToANegativeIndex) {
    EXPECT_EQ(error_of([&] { files.put(-1, "C:\\Temp\\1.pdf"); }), 9);
    EXPECT_EQ(files.list(), Value(Array{0, {}, Array::Element::text}));
}

TEST_F(TemporaryFileList, ThatOnlyGrowsAtItsEndHasNoGaps) {
    files.append("C:\\Temp\\1.pdf");
    files.append("C:\\Temp\\2.pdf");
    EXPECT_EQ(files.list(), Value(Array{0, {"C:\\Temp\\1.pdf", "C:\\Temp\\2.pdf"}, Array::Element::text}));
}

TEST_F(TemporaryFileList, IsDeletedInOrderAndItsEmptyElementsArePassedOver) {
    files.put(2, "C:\\Temp\\1.pdf");
    files.put(3, "C:\\Temp\\2.pdf");
    run([&] { files.remove(session()); });
    expect_journal(R"(
        delete C:\Temp\1.pdf
        delete C:\Temp\2.pdf
    )");
}

TEST_F(TemporaryFileList, OneThatIsMissingWhenTheyAreDeletedIsFileNotFound) {
    for (const char* path : {"C:\\Temp\\1.pdf", "C:\\Temp\\lost.pdf", "C:\\Temp\\2.pdf"})
        files.append(path);
    run([&] { files.remove(session()); });
    expect_journal(R"(
        delete C:\Temp\1.pdf
        delete C:\Temp\lost.pdf
        raise 53 from : File not found
    )");
}

TEST_F(TemporaryFileList, OneThatWasNeverMadeIsPassedOverWhereThatMayBe) {
    for (const char* path : {"C:\\Temp\\1.pdf", "C:\\Temp\\lost.pdf", "C:\\Temp\\2.pdf"})
        files.append(path);
    run([&] { files.remove_if_exist(session()); });
    expect_journal(R"(
        length C:\Temp\1.pdf -> 1000
        delete C:\Temp\1.pdf
        length C:\Temp\lost.pdf -> not found
        length C:\Temp\2.pdf -> 1000
        delete C:\Temp\2.pdf
    )");
}

}  // namespace
}  // namespace foliant::session
