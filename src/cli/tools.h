#pragma once

#include "cli/request.h"
#include "platform/local/local_machine.h"

namespace foliant::cli {

/// Prints the host programs as a table, or as JSON: which engine stands in, which version, what brings it
/// when it is missing. Returns the exit code: 4 when none of them can be used.
int show_hosts(const Request& request, platform::local::LocalMachine& machine);

/// The `registry` sub-commands. Keys are written as "HKEY_CURRENT_USER\Software\..." or with "HKCU" or "HKLM"
/// for short. Values whose name tells of a password show as "***". Returns the exit code: 1 for a value that
/// is not there and for settings that cannot be read or saved.
int run_registry(const Request& request, platform::local::LocalMachine& machine);

}  // namespace foliant::cli
