#include "platform/win32/variant.h"

#include <gtest/gtest.h>

#include "automation/array_bounds.h"
#include "automation/describe.h"
#include "automation/error.h"

namespace foliant::platform::win32::test {
namespace {

using automation::Array;
using automation::describe;
using automation::Empty;
using automation::Error;
using automation::Missing;
using automation::Null;
using automation::Value;

std::int32_t error_of(const VARIANT& variant) {
    try {
        to_value(variant);
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

const std::vector<Value>& samples() {
    static const std::vector<Value> values{
        Empty{},
        Null{},
        Missing{},
        true,
        false,
        std::int16_t{-7},
        std::int32_t{70000},
        1.5F,
        -2.25,
        "",
        "caf\xC3\xA9",
        std::string("a\0b", 3),
        automation::ObjectPtr(),
        Array{1, {"a", std::int16_t{2}, Missing{}}, Array::Element::any},
        Array{-3, {"x", "y"}, Array::Element::text},
        Array{0, {}, Array::Element::any},
        Array{0, {Array{2, {true}, Array::Element::any}}, Array::Element::any},
    };
    return values;
}

TEST(Variant, BringsEveryValueBackWithItsExactType) {
    for (const Value& value : samples()) {
        Variant variant;
        put_value(value, *variant);
        EXPECT_EQ(to_value(*variant), value) << describe(value);
    }
}

TEST(Variant, IsReadThroughReferences) {
    for (const Value& value : samples()) {
        Variant inner;
        put_value(value, *inner);
        VARIANT reference;
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = inner.get();
        EXPECT_EQ(to_value(reference), value) << describe(value);
        if (inner->vt == VT_EMPTY || inner->vt == VT_NULL) continue;
        reference.vt = static_cast<VARTYPE>(VT_BYREF | inner->vt);
        reference.byref = &inner->llVal;
        EXPECT_EQ(to_value(reference), value) << describe(value);
    }
}

TEST(Variant, OfAnotherNumberTypeBecomesTheNearestOne) {
    const auto read = [](VARTYPE type, LONGLONG bits) {
        VARIANT variant;
        variant.llVal = bits;
        variant.vt = type;
        return to_value(variant);
    };
    EXPECT_EQ(read(VT_I1, 0xFF), Value(std::int16_t{-1}));
    EXPECT_EQ(read(VT_UI1, 0xFF), Value(std::int16_t{255}));
    EXPECT_EQ(read(VT_UI2, 0xFFFF), Value(std::int32_t{65535}));
    EXPECT_EQ(read(VT_UI4, 5), Value(std::int32_t{5}));
    EXPECT_EQ(read(VT_UI4, 0xFFFFFFFF), Value(4294967295.0));
    EXPECT_EQ(read(VT_I8, -5), Value(std::int32_t{-5}));
    EXPECT_EQ(read(VT_I8, 1LL << 40), Value(1099511627776.0));
    EXPECT_EQ(read(VT_INT, -5), Value(std::int32_t{-5}));
    EXPECT_EQ(read(VT_CY, 25000), Value(2.5));
}

TEST(Variant, WritesTruthWithAllBitsAndReadsItFromAny) {
    Variant truth;
    put_value(true, *truth);
    EXPECT_EQ(truth->boolVal, VARIANT_TRUE);
    truth->boolVal = 1;
    EXPECT_EQ(to_value(*truth), Value(true));
}

TEST(Variant, OfADateOrADecimalIsADouble) {
    VARIANT date;
    date.vt = VT_DATE;
    date.date = 2.5;
    EXPECT_EQ(to_value(date), Value(2.5));
    VARIANT decimal;
    VarDecFromR8(-0.125, &decimal.decVal);
    decimal.vt = VT_DECIMAL;
    EXPECT_EQ(to_value(decimal), Value(-0.125));
}

TEST(Variant, WithArrayOfNumbersBecomesOneOfAnyValues) {
    Variant variant;
    SAFEARRAY* numbers = SafeArrayCreateVector(VT_I4, 5, 2);
    for (LONG i = 5; i < 7; ++i)
        SafeArrayPutElement(numbers, &i, &i);
    variant->vt = VT_ARRAY | VT_I4;
    variant->parray = numbers;
    EXPECT_EQ(to_value(*variant), Value(Array{5, {std::int32_t{5}, std::int32_t{6}}, Array::Element::any}));
}

TEST(Variant, WithAnArrayLeavesWhatOneElementIsToWhoUsesIt) {
    Variant variant;
    variant->vt = VT_ARRAY | VT_VARIANT;
    variant->parray = SafeArrayCreateVector(VT_VARIANT, 1, 2);
    VARIANT element;
    VariantInit(&element);
    element.vt = VT_ERROR;
    element.scode = E_FAIL;
    LONG index = 1;
    SafeArrayPutElement(variant->parray, &index, &element);
    element.vt = VT_I4;
    element.lVal = 7;
    index = 2;
    SafeArrayPutElement(variant->parray, &index, &element);
    EXPECT_EQ(to_value(*variant),
              Value(Array{1, {automation::Missing{}, std::int32_t{7}}, Array::Element::any}));
}

TEST(Variant, WithoutCounterpartRaises13) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_ERROR;
    variant.scode = E_FAIL;
    EXPECT_EQ(error_of(variant), 13);
    variant.vt = VT_BYREF | VT_I4;
    variant.byref = nullptr;
    EXPECT_EQ(error_of(variant), 13);
    variant.vt = 4711;
    EXPECT_EQ(error_of(variant), 13);
}

TEST(Variant, OfAnArrayThatOneIndexDoesNotWalkIsOneWithoutBounds) {
    VARIANT never_given;
    never_given.vt = VT_ARRAY | VT_BSTR;
    never_given.parray = nullptr;
    EXPECT_EQ(to_value(never_given), Value(automation::array_without_bounds()));
    SAFEARRAYBOUND bounds[2]{{2, 0}, {2, 0}};
    Variant table;
    table->vt = VT_ARRAY | VT_VARIANT;
    table->parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    EXPECT_EQ(to_value(*table), Value(automation::array_without_bounds()));
}

}  // namespace
}  // namespace foliant::platform::win32::test
