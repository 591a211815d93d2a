#pragma once

#include <cstdint>
#include <limits>

#include "automation/value.h"

namespace foliant::automation {

// A caller's array that was declared and never given bounds, or that has several dimensions, is an array, but no
// single index walks it. It travels without its elements, and who asks for its bounds raises 9: members do so in
// the midst of their steps, not before the first one.

/// Stands for the bounds of such an array; no caller's array begins there.
inline constexpr std::int32_t no_bounds = std::numeric_limits<std::int32_t>::min();

inline Array array_without_bounds() {
    Array array;
    array.lower_bound = no_bounds;
    return array;
}

inline bool has_bounds(const Array& array) noexcept {
    return array.lower_bound != no_bounds;
}

}  // namespace foliant::automation
