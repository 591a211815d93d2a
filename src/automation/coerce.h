#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/value.h"

namespace foliant::automation {

// Conversions between automation types, as automation itself converts an argument that does not have the type
// a member asks for. All of them raise 13 (type mismatch) for what has no such meaning (an object, an array,
// a missing argument, a text that is no number), 94 for Null, and 6 (overflow) for a number that does not
// fit. Numbers are written and read with a decimal point whatever the locale; halves round to the even
// neighbour.

/// True and False give "True" and "False"; an empty value gives "".
std::string to_text(const Value& value);

/// Any number but 0 is true; so are the texts "True" and "False" in any case, and texts that hold a number.
bool to_bool(const Value& value);

std::int16_t to_int16(const Value& value);
std::int32_t to_int32(const Value& value);
float to_single(const Value& value);
double to_double(const Value& value);

/// The number that a text begins with, 0 when it begins with none: "6.0 beta" gives 6, "" gives 0.
/// Reading stops at the first character that cannot continue a number. Never raises.
double leading_number(std::string_view text) noexcept;

}  // namespace foliant::automation
