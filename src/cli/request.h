#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/value.h"
#include "cli/secret_input.h"
#include "core/member.h"

namespace foliant::cli {

/// What all members' sub-commands have in common.
struct CallOptions {
    bool json = false;
    bool quiet = false;
    double timeout_seconds = 0;  ///< 0 is no limit
    Deadline deadline;           ///< that many seconds after the command began to read its words
    std::optional<std::uint64_t> memory_bytes;  ///< 0 is no limit; nothing is the usual one
    bool verbose = false;                       ///< every call on things outside shows as it happens
    std::string log_file;                       ///< gets the same; "" for none
    bool no_clobber = false;                    ///< an output that exists is not replaced
    std::string temp_path;                      ///< put into `TempFilePath` before the call; "" leaves it
};

/// What the command line asks for.
struct Request {
    enum class Action {
        call,
        rehearse,
        hosts,
        registry_list,
        registry_get,
        registry_set,
        registry_remove,
        registry_reset,
        completion,
        manual
    };

    Action action = Action::call;
    const core::Member* member = nullptr;  ///< for call and rehearse
    automation::Arguments arguments;       ///< named, in the member's order
    CallOptions options;
    std::vector<std::string> words;  ///< the plain arguments of the other actions
};

/// What parsing came to: a request, or a text to show and the code to end with.
struct Parsed {
    std::optional<Request> request;
    std::string output;  ///< for stdout (help, version, the report of a failure as JSON)
    std::string error;   ///< for stderr (what is wrong and how to see the usage)
    int exit_code = 0;
};

/// Parses the command line. Passwords that come from a file or the terminal are read here, within the time
/// limit.
Parsed parse(const std::vector<std::string>& words, const AskPassword& ask_password);

}  // namespace foliant::cli
