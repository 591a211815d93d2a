#pragma once

#include <ostream>

#include "cli/request.h"
#include "platform/platform.h"

namespace foliant::cli {

/// Writes every step that the member of the request would take, one line each, and takes none. Input files
/// and settings are the real ones of `platform`, which is only read; hosts and outputs are imagined. Returns
/// the exit code. Passwords show as "***".
int rehearse(const Request& request, const platform::Platform& platform, std::ostream& out,
             std::ostream& errors);

}  // namespace foliant::cli
