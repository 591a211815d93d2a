#pragma once

#include <string>
#include <vector>

#include "cli/request.h"
#include "platform/platform.h"

namespace foliant::cli {

/// What can be told before the call that `here`, the machine as it is, will not let it do as asked, though
/// the member would pass over it without a word. Returns what will be left out: inputs of a list that do not
/// exist, a sentence each.
///
/// Raises an automation error when nothing sensible is left to do: protection that the registered version of
/// Acrobat does not have, or a list of inputs none of which exists.
std::vector<std::string> preflight(const Request& request, const platform::Platform& here);

}  // namespace foliant::cli
