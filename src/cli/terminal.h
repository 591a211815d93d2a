#pragma once

#include <string>

namespace foliant::cli {

/// Asks on the terminal, whatever standard input is, and does not show what is typed. Raises
/// CLI::ValidationError when there is no terminal.
std::string ask_on_terminal(const std::string& prompt);

}  // namespace foliant::cli
