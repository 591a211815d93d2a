#pragma once

#include <string>
#include <vector>

#include "cli/request.h"
#include "platform/platform.h"

namespace foliant::cli {

/// What can be told before the call that `here`, the machine as it is, will not let it do as asked, though
/// the member would find out late, or pass over it without a word. Returns what will be left out: inputs of a
/// list that are no files, a sentence each that says what they are.
///
/// Raises an automation error when nothing sensible is left to do: protection that the registered version of
/// Acrobat does not have, more seconds to wait than a member counts, an input that is no file, or a list of
/// inputs none of which is one.
std::vector<std::string> preflight(const Request& request, const platform::Platform& here);

}  // namespace foliant::cli
