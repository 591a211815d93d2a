#pragma once

#include "hosts/containment/policy.h"

namespace foliant::hosts::containment {

/// The version of the running kernel's interface for restricting files; 0 when it has none or it is off.
int landlock_version() noexcept;

/// Restricts this thread, and what it starts, to the files and sockets of `policy`, as far as `version` of
/// the interface goes; needs the right to gain no new privileges to be given up before. Throws
/// std::system_error.
void restrict_files(const Policy& policy, int version);

}  // namespace foliant::hosts::containment
