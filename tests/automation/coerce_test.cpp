#include "automation/coerce.h"

#include <gtest/gtest.h>
#include <limits>

#include "automation/object.h"
#include "support/error_of.h"

namespace foliant::automation {
namespace {

using tests::error_number;

TEST(Coerce, TextHoldingANumberBecomesThatNumber) {
    EXPECT_EQ(to_int32(" 42 "), 42);
    EXPECT_EQ(to_int32("-7"), -7);
    EXPECT_EQ(to_int32("+7"), 7);
    EXPECT_EQ(to_int16("1e3"), 1000);
    EXPECT_EQ(to_int32("&H1F"), 31);
    EXPECT_EQ(to_int32("&O17"), 15);
    EXPECT_DOUBLE_EQ(to_double("2.5"), 2.5);
    EXPECT_FLOAT_EQ(to_single("0.5"), 0.5F);
}

TEST(Coerce, HalvesRoundToTheEvenNeighbour) {
    EXPECT_EQ(to_int32(0.5), 0);
    EXPECT_EQ(to_int32(1.5), 2);
    EXPECT_EQ(to_int32(2.5), 2);
    EXPECT_EQ(to_int32("-1.5"), -2);
}

TEST(Coerce, WhatIsNoNumberIsATypeMismatch) {
    for (const Value& value :
         {Value("abc"), Value(""), Value("1 2"), Value("1,5"), Value("0x10"), Value("inf"), Value("nan"),
          Value("+-1"), Value(Missing{}), Value(ObjectPtr()), Value(Array{})}) {
        EXPECT_EQ(error_number([&] { to_int32(value); }), 13);
        EXPECT_EQ(error_number([&] { to_bool(value); }), 13);
        EXPECT_EQ(error_number([&] { to_double(value); }), 13);
    }
}

TEST(Coerce, WhatDoesNotFitOverflows) {
    EXPECT_EQ(error_number([] { to_int16(std::int32_t{32768}); }), 6);
    EXPECT_EQ(to_int16(std::int32_t{32767}), 32767);
    EXPECT_EQ(to_int16(-32768.0), -32768);
    EXPECT_EQ(error_number([] { to_int16(32767.5); }), 6);
    EXPECT_EQ(error_number([] { to_int32(2147483648.0); }), 6);
    EXPECT_EQ(error_number([] { to_int32("1e300"); }), 6);
    EXPECT_EQ(error_number([] { to_double("1e999"); }), 6);
    EXPECT_EQ(error_number([] { to_single(1e39); }), 6);
    EXPECT_EQ(error_number([] { to_int32(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(Coerce, NullIsNeverANumberATextOrATruth) {
    EXPECT_EQ(error_number([] { to_text(Null{}); }), 94);
    EXPECT_EQ(error_number([] { to_int32(Null{}); }), 94);
    EXPECT_EQ(error_number([] { to_bool(Null{}); }), 94);
}

TEST(Coerce, TruthComesFromNumbersAndFromItsTwoNames) {
    EXPECT_TRUE(to_bool("TRUE"));
    EXPECT_FALSE(to_bool(" false "));
    EXPECT_TRUE(to_bool(std::int16_t{2}));
    EXPECT_TRUE(to_bool("-1"));
    EXPECT_FALSE(to_bool("0"));
    EXPECT_FALSE(to_bool(Empty{}));
    EXPECT_EQ(to_int16(true), -1);
}

TEST(Coerce, TextOfEveryType) {
    EXPECT_EQ(to_text(true), "True");
    EXPECT_EQ(to_text(false), "False");
    EXPECT_EQ(to_text(Empty{}), "");
    EXPECT_EQ(to_text(std::int16_t{-3}), "-3");
    EXPECT_EQ(to_text(1.0), "1");
    EXPECT_EQ(to_text(0.1), "0.1");
    EXPECT_EQ(to_text(0.1F), "0.1");
    EXPECT_EQ(to_text(1e20), "1E+20");
    EXPECT_EQ(error_number([] { to_text(Missing{}); }), 13);
    EXPECT_EQ(error_number([] { to_text(Array{}); }), 13);
}

TEST(Coerce, LeadingNumberStopsWhereTheNumberDoes) {
    EXPECT_EQ(leading_number("6.0"), 6.0);
    EXPECT_EQ(leading_number("6.01 beta"), 6.01);
    EXPECT_EQ(leading_number("5.0.5"), 5.0);
    EXPECT_EQ(leading_number("  7"), 7.0);
    EXPECT_EQ(leading_number(""), 0.0);
    EXPECT_EQ(leading_number("Acrobat 6"), 0.0);
    EXPECT_EQ(leading_number("-2x"), -2.0);
    EXPECT_EQ(leading_number("inf"), 0.0);
}

}  // namespace
}  // namespace foliant::automation
