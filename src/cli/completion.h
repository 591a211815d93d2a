#pragma once

#include <string>
#include <string_view>

namespace foliant::cli {

/// The completion script for "bash", "zsh" or "fish": sub-commands, the options of each member, and files
/// where a file is wanted. Made from the member table.
std::string completion_script(std::string_view shell);

}  // namespace foliant::cli
