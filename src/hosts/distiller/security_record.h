#pragma once

#include <string>
#include <string_view>

#include "hosts/distiller/security.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::distiller {

/// How the security of a job reaches the program that applies it: in an open file without a name, since other
/// users can read what a program is called with.

/// The open file; throws DistillError.
posix::FileDescriptor write_security(const Security& security);

/// The content of such a file. Throws std::runtime_error when it is none.
Security read_security(int descriptor);

}  // namespace foliant::hosts::distiller
