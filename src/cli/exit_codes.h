#pragma once

#include <string>

#include "automation/error.h"

namespace foliant::cli {

/// How the command ends; `exit_code_table` says what each code means. Scripts rely on these: they never change.
enum ExitCode : int {
    exit_success = 0,
    exit_failure = 1,
    exit_not_found = 1,  ///< of FindTextInPDF, whose failures have other codes
    exit_usage = 2,
    exit_missing_input = 3,
    exit_missing_engine = 4,
    exit_host_failure = 5,
    exit_incomplete = 7,
    exit_not_shown = 8,
    exit_time_limit = 124,
    exit_memory_limit = 125,
    exit_interrupted = 130,
    exit_terminated = 143,
};

/// One line of the table that --help, the manual and README show.
struct ExitCodeHelp {
    int code;
    const char* meaning;
};
inline constexpr ExitCodeHelp exit_code_table[] = {
    {exit_success, "success"},
    {exit_failure,
     "a failure without a code of its own, such as a full disk; FindTextInPDF: the text is not there"},
    {exit_usage, "the command line was wrong, or would have cost a file; nothing was done"},
    {exit_missing_input, "an input file does not exist; nothing was done"},
    {exit_missing_engine, "the engine behind a host program is not installed"},
    {exit_host_failure, "a host program failed (wrong password, broken document, failed Distiller job)"},
    {exit_incomplete, "done, but not all of it: standard error says what was left out"},
    {exit_not_shown, "nothing could be shown or read aloud here: standard error says what would have been"},
    {exit_time_limit, "--timeout ended the call"},
    {exit_memory_limit, "--memory ended the call"},
    {exit_interrupted, "interrupted (Ctrl-C)"},
    {exit_terminated, "terminated from outside"},
};

/// The code for a failure of a member.
int exit_code_for(const automation::Error& error);

}  // namespace foliant::cli
