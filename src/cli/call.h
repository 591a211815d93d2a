#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/error.h"
#include "automation/object.h"
#include "cli/request.h"
#include "platform/platform.h"

namespace foliant::cli {

/// An event of the component that arrived during a call.
struct ReceivedEvent {
    std::string name;
    std::vector<automation::Value> arguments;
};

/// What a call came to.
struct Outcome {
    automation::Value result;
    automation::Arguments arguments;  ///< with what by-reference parameters hold afterwards
    std::vector<ReceivedEvent> events;
    std::optional<automation::Error> error;
    int exit_code = 0;
};

/// Makes an outcome a failure, with its exit code.
void fail(Outcome& outcome, automation::Error error);

/// The failure of a host program that says it is done and has made no file.
automation::Error not_made(const std::string& output);

/// Calls the member of a request on a new `BuildPDF`. `watcher` is told every event as it happens; it may be
/// the one that shows progress.
///
/// A Distiller job that failed is a failure here, although the member itself does not notice it: the one who
/// typed the command is told by the exit code. So is a call after which the file that it should have made is
/// not there.
Outcome call_member(const Request& request, const platform::Platform& platform,
                    automation::EventSink& watcher);

}  // namespace foliant::cli
