#pragma once

#include <oaidl.h>

#include "automation/value.h"
#include "core/value_type.h"

namespace foliant::com {

/// The value in a caller's variant, as the type that a parameter has. An object that is given for a plain
/// type stands for its default property. An object that counts its items under `length` and has them under
/// "0", "1", ... (a JScript array) is an array where the parameter takes any value. A missing argument stays
/// missing. Raises 6, 13 or 94 for what the type cannot take.
automation::Value as_parameter(core::ValueType type, const VARIANT& given);

/// Puts a value into the variable that a by-reference variant points to, as the type that the variable has; a
/// variable of variants takes the value's own type. Raises 6 or 13 when the variable cannot take it; it is
/// then as it was.
void assign(VARIANT& reference, const automation::Value& value);

/// The automation type of a parameter or result.
constexpr VARTYPE variant_type(core::ValueType type) noexcept {
    using enum core::ValueType;
    switch (type) {
        case string:
            return VT_BSTR;
        case boolean:
            return VT_BOOL;
        case integer:
            return VT_I2;
        case long_number:
        case align_type:
        case read_type:
            return VT_I4;
        case single:
            return VT_R4;
        case double_number:
            return VT_R8;
        case object:
            return VT_DISPATCH;
        case variant:
            break;
    }
    return VT_VARIANT;
}

}  // namespace foliant::com
