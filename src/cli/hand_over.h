#pragma once

#include "cli/call.h"
#include "cli/request.h"
#include "platform/local/local_machine.h"

namespace foliant::cli {

/// Hands what a member leaves on the screen over to a viewer, and what is to be read aloud to a speech engine;
/// both go on when the command has ended. Where there is no screen, or no such program, the outcome says what
/// would have been shown, and has the exit code for it.
void hand_over(const Request& request, const platform::local::LocalMachine& machine, Outcome& outcome);

}  // namespace foliant::cli
