#pragma once

#include <array>

#include "core/member.h"

namespace foliant::core {

inline constexpr std::size_t member_count = 46;

/// Every member of the interface in slot order (slot 0 follows the seven slots that any dispatch interface
/// has).
extern const std::array<Member, member_count> members;

/// Where the library's own list of functions puts the two `TempFilePath` accessors, which come last among the
/// slots.
extern const std::array<std::size_t, member_count> library_order;

}  // namespace foliant::core
