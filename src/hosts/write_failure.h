#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "automation/error.h"

namespace foliant::hosts {

/// Says in words that a file could not be written: on which file, why, and what to do. `what` is what the
/// file would have been: "the PDF".
std::string write_failure_text(const std::filesystem::filesystem_error& failure, std::string_view what = "");

/// The same as an error of `application`: 76 (folder missing), 70 (not permitted), 61 (disk full) or 75.
automation::Error write_failure(std::string_view application,
                                const std::filesystem::filesystem_error& failure);

}  // namespace foliant::hosts
