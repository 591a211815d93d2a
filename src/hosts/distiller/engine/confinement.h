#pragma once

#include "hosts/containment/policy.h"

namespace foliant::hosts::distiller::engine {

/// Readies this process for a document: from now on it ends with `parent`, and may do what `policy` names,
/// within the limits that every engine program has. Ends the process where its parent is gone already or the
/// kernel refuses, with a record that says so.
void confine(long parent, containment::Policy policy);

/// What one engine program may allocate, in bytes. Real documents stay far below, memory hogs do not.
inline constexpr std::uint64_t most_memory = std::uint64_t{4} << 30U;

}  // namespace foliant::hosts::distiller::engine
