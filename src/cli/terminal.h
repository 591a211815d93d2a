#pragma once

#include <string>

#include "cli/secret_input.h"

namespace foliant::cli {

/// Asks on the terminal, whatever standard input is, and does not show what is typed; the terminal shows what
/// is typed again afterwards, also when Ctrl-C ends the command here. Raises CLI::ValidationError when there
/// is no terminal, and TimeLimitReached.
std::string ask_on_terminal(const std::string& prompt, const Deadline& deadline);

}  // namespace foliant::cli
