#pragma once

#include "cli/request.h"
#include "platform/local/local_machine.h"

namespace foliant::cli {

/// Makes the call of a request in a process of its own, within its limits, and reports it on standard output
/// and standard error. What stood under the output's name comes back when the call fails, however it fails.
/// Returns the exit code.
int call_supervised(const Request& request, platform::local::LocalMachine& machine);

}  // namespace foliant::cli
