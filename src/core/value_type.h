#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/value.h"
#include "core/build_pdf.h"

namespace foliant::core {

/// The types that parameters and results have in the interface.
enum class ValueType {
    string,
    boolean,
    integer,      ///< 16 bits
    long_number,  ///< 32 bits
    single,
    double_number,
    variant,
    object,
    align_type,
    read_type,
};

template <class T>
inline constexpr ValueType value_type_of =
    [] { static_assert(sizeof(T) == 0, "not a type of the interface"); }();
template <>
inline constexpr ValueType value_type_of<std::string> = ValueType::string;
template <>
inline constexpr ValueType value_type_of<bool> = ValueType::boolean;
template <>
inline constexpr ValueType value_type_of<std::int16_t> = ValueType::integer;
template <>
inline constexpr ValueType value_type_of<std::int32_t> = ValueType::long_number;
template <>
inline constexpr ValueType value_type_of<float> = ValueType::single;
template <>
inline constexpr ValueType value_type_of<double> = ValueType::double_number;
template <>
inline constexpr ValueType value_type_of<automation::Value> = ValueType::variant;
template <>
inline constexpr ValueType value_type_of<automation::ObjectPtr> = ValueType::object;
template <>
inline constexpr ValueType value_type_of<AlignType> = ValueType::align_type;
template <>
inline constexpr ValueType value_type_of<ReadType> = ValueType::read_type;

/// Makes an argument the type that a parameter has. Raises 6, 13 or 94 when it cannot.
template <class T>
T from_value(const automation::Value& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return automation::to_text(value);
    } else if constexpr (std::is_same_v<T, bool>) {
        return automation::to_bool(value);
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
        return automation::to_int16(value);
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        return automation::to_int32(value);
    } else if constexpr (std::is_same_v<T, float>) {
        return automation::to_single(value);
    } else if constexpr (std::is_same_v<T, double>) {
        return automation::to_double(value);
    } else if constexpr (std::is_enum_v<T>) {
        return static_cast<T>(automation::to_int32(value));
    } else if constexpr (std::is_same_v<T, automation::ObjectPtr>) {
        if (value.holds<automation::Empty>()) return nullptr;
        if (const auto* object = value.if_holds<automation::ObjectPtr>()) return *object;
        throw automation::Error(automation::RuntimeError::type_mismatch);
    } else {
        return value;
    }
}

/// The automation value of a parameter or result.
template <class T>
automation::Value to_value(const T& native) {
    if constexpr (std::is_enum_v<T>) {
        return automation::Value(static_cast<std::int32_t>(native));
    } else {
        return automation::Value(native);
    }
}

/// 449, naming the parameter.
inline automation::Error argument_not_optional(std::string_view parameter) {
    return {automation::RuntimeError::argument_not_optional,
            "Argument not optional: " + std::string(parameter)};
}

}  // namespace foliant::core
