#pragma once

#include <string>
#include <vector>

#include "cli/call.h"
#include "cli/request.h"

namespace foliant::cli {

/// The result of a member as plain text with a line feed, "" for a member without one. Programs get it byte
/// for byte; on a terminal nothing in it acts as a command.
std::string result_text(const Outcome& outcome, bool for_a_terminal);

/// What went wrong, for stderr: the description, and what to do about it where that is known. Where one
/// sentence stands for whatever failed, what did follows it, indented.
std::string error_text(const automation::Error& error);

/// The closing line of a call that made a file: name, pages (when they can be told) and size; "" otherwise.
std::string closing_line(const Outcome& outcome);

/// What a call left out, for stderr, a line each.
std::string left_out_text(const Outcome& outcome);

/// The whole outcome as one JSON object with the members "member", "result", "arguments", "events", "output"
/// (file, pages, bytes), for a search "found" (a list of page, rectangle in points, context), "leftOut",
/// "error" and "exitCode"; the error has its "cause" where its sentence stands for whatever failed. Passwords
/// never appear.
std::string json_report(const core::Member& member, const Outcome& outcome);

/// The same for a rehearsal, with its "steps".
std::string json_rehearsal(const core::Member& member, const Outcome& outcome,
                           const std::vector<std::string>& steps);

/// The same for a call that did not come to an end of its own, or never began; nullptr for no member.
std::string json_error(const core::Member* member, const automation::Error& error, int exit_code);

/// Reports a call that did not come to an end of its own, or never began, in the way that the request asks
/// for. Returns the exit code.
int report_failure(const Request& request, int exit_code, const std::string& description);

}  // namespace foliant::cli
