#pragma once

#include <string>

#include "cli/call.h"
#include "core/member_table.h"

namespace foliant::cli {

/// Whether a member looks for something. Its exit code says whether it was found, as other programs that
/// search have it: 0 for found, 1 for not found, and something else for a failure.
bool is_search(const core::Member& member);

/// The exit code of a failure of that member which has none of its own.
int failure_code(const core::Member& member);

/// Gives the outcome of a search the exit code that it has beyond other calls.
void conclude_search(const core::Member& member, Outcome& outcome);

/// What a search has found, a line for each place: its page, where on the page in points (from the left and
/// from the bottom), and the line of text that it stands in. "" for other calls.
std::string found_text(const Outcome& outcome);

}  // namespace foliant::cli
