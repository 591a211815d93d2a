#pragma once

#include <string>
#include <string_view>

#include "automation/error.h"

namespace foliant::platform::local {

/// The run-time error for a failed system call: its usual sentence, what could not be done, and the system's
/// own reason for the error code `code` (an errno value):
///
///     Disk full: cannot write /out/report.txt (No space left on device).
automation::Error system_error(automation::RuntimeError number, std::string_view action,
                               const std::string& path, int code);

}  // namespace foliant::platform::local
