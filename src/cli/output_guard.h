#pragma once

#include <optional>
#include <string>

#include "cli/request.h"

namespace foliant::cli {

/// Why a call is refused before anything is done, because it would cost its user a file, or could not read
/// or write where it is told to; nothing when it may go on. The reasons: an output without a name, one that is
/// an input by whatever name, one that exists and is of another kind than the member writes, is no ordinary
/// file, or may not be written to; a file to be changed in place that may not be, or whose folder may not be
/// written to; a folder that is missing or may not be written to, an existing file when those are not to be
/// replaced, a folder in place of a single input, and a folder for temporary files that is none. So is an
/// address of a server that holds who goes there, which would be passed over.
///
/// An empty file may be replaced by anything: it is what `mktemp` leaves.
std::optional<std::string> refusal(const Request& request);

}  // namespace foliant::cli
