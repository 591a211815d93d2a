#pragma once

#include <cstdint>
#include <sys/types.h>

namespace foliant::cli {

/// The memory, in bytes, that a process and all its descendants hold and that cannot be had again by
/// forgetting files: what they have written to, shared memory once. Memory that a fork shares counts once
/// when the sum is above `precise_above`, which costs a look at all pages. A process that has ended holds
/// nothing.
std::uint64_t memory_use(pid_t process, std::uint64_t precise_above);

/// What a call may use when nobody says: half of the machine's memory, at most 2 GiB.
std::uint64_t usual_memory_limit();

}  // namespace foliant::cli
