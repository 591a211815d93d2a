#pragma once

#include <string>

namespace foliant::cli {

/// The manual page foliant(1) in the man macros of troff, made from the member table and the table of exit
/// codes.
std::string manual_page();

}  // namespace foliant::cli
