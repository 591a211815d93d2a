#pragma once

#include "hosts/containment/policy.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::containment {

/// The version of the running kernel's interface for restricting files; 0 when it has none or it is off.
int landlock_version() noexcept;

/// Restricts this thread, and what it starts, to the files and sockets of `policy`, as far as `version` of
/// the interface goes; needs the right to gain no new privileges to be given up before. Throws
/// std::system_error.
void restrict_files(const Policy& policy, int version);

/// The same in two steps, for a process that is to be forked while others run: what is made here is put into
/// force there, without memory that another thread may be holding. No descriptor where `version` is 0.
posix::FileDescriptor prepare_files(const Policy& policy, int version);

/// Puts it into force, and gives up the right to gain privileges; false when the kernel refuses.
bool restrict_to(const posix::FileDescriptor& prepared) noexcept;

}  // namespace foliant::hosts::containment
