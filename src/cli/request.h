#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "automation/value.h"
#include "core/member.h"

namespace foliant::cli {

/// What all members' sub-commands have in common.
struct CallOptions {
    bool json = false;
    bool quiet = false;
    double timeout_seconds = 0;  ///< 0 is no limit
    bool no_clobber = false;     ///< an output that exists is not replaced
    std::string temp_path;       ///< put into `TempFilePath` before the call; "" leaves it
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
    std::string output;  ///< for stdout (help, version)
    std::string error;   ///< for stderr (what is wrong and how to see the usage)
    int exit_code = 0;
};

/// Parses the command line. Passwords that come from a file or the terminal are read here; `ask_password`
/// shows a prompt and returns what was typed.
Parsed parse(const std::vector<std::string>& words,
             const std::function<std::string(const std::string& prompt)>& ask_password);

}  // namespace foliant::cli
