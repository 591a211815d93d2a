#pragma once

#include "hosts/process/wire.h"

namespace foliant::hosts::process {

/// Writes what is being handled (call it inside a catch clause) so that the other side can throw it:
/// automation errors and failures of the file system stay what they are, anything else becomes an automation
/// error.
void put_failure(Writer& message);

/// Throws what `put_failure` wrote.
[[noreturn]] void throw_failure(Reader& message);

}  // namespace foliant::hosts::process
