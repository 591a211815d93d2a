#pragma once

#include "cli/call_log.h"
#include "cli/kept_file.h"
#include "cli/request.h"
#include "platform/local/local_machine.h"

namespace foliant::cli {

/// Has the host get ready that a call will want: loading one takes longer than all that comes before its first object is
/// wanted. For a process of one thread. Raises nothing.
void start_host_ahead(const core::Member& member, platform::local::LocalMachine& machine) noexcept;

/// Makes the call of a request and reports it on standard output and standard error; returns the exit code.
/// This is the worker's part: what engines write to the two streams goes to `engine_output` from now on (-1
/// for nowhere), and the process is to end without unwinding.
int make_call(const Request& request, platform::local::LocalMachine& machine, const KeptFile& kept,
              CallLog& log, int engine_output);

}  // namespace foliant::cli
