#pragma once

#include "cli/call.h"
#include "cli/request.h"

namespace foliant::cli {

/// Looks at the file that a successful call says it has made: that it is of the kind that the member writes,
/// whole, with pages, and protected when that was asked for. What is found is put into the outcome; a file
/// that is not what was asked for makes it a failure and is removed, so that nobody takes it for good.
void check_output(const Request& request, Outcome& outcome);

}  // namespace foliant::cli
