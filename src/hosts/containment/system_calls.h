#pragma once

#include "hosts/containment/policy.h"

namespace foliant::hosts::containment {

/// Whether the kernel filters system calls, and this machine's are known here.
bool can_filter_calls() noexcept;

/// Refuses, to this process and what it starts, the system calls that reading a document never takes: other
/// processes, sockets, the rights and times of files, everything that changes the machine. Needs the right to
/// gain no new privileges to be given up before. Throws std::system_error.
void filter_calls(const Policy& policy);

}  // namespace foliant::hosts::containment
