#pragma once

#include <functional>

#include "automation/value.h"

namespace foliant::converters {

/// Walks a list of inputs from its lower to its upper bound with a 16-bit index. Raises 13 when `list` is no
/// array, and 6 when it has more than 32767 entries or a bound that 16 bits do not hold; then no entry is
/// visited.
void for_each_item(const automation::Value& list,
                   const std::function<void(const automation::Value&)>& action);

}  // namespace foliant::converters
