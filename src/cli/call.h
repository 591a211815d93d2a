#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/error.h"
#include "automation/object.h"
#include "cli/request.h"
#include "cli/transfer_control.h"
#include "hosts/machine.h"
#include "platform/platform.h"

namespace foliant::cli {

/// An event of the component that arrived during a call.
struct ReceivedEvent {
    std::string name;
    std::vector<automation::Value> arguments;
};

/// The file that a call has made.
struct MadeFile {
    std::string path;
    std::int64_t bytes = 0;
    std::optional<long> pages;  ///< nothing when they cannot be told
};

/// What a call came to.
struct Outcome {
    automation::Value result;
    automation::Arguments arguments;  ///< with what by-reference parameters hold afterwards
    std::vector<ReceivedEvent> events;
    std::optional<automation::Error> error;
    bool host_noticed_nothing = false;  ///< The command has found the failure: its host told of success.
    std::vector<std::string> left_out;  ///< what was asked for and not done, a sentence each
    std::optional<MadeFile> made;
    std::vector<hosts::FoundText> found;  ///< by a member that searches
    int exit_code = 0;
};

/// Makes an outcome a failure, with its exit code.
void fail(Outcome& outcome, const automation::Error& error);

/// The same for a failure that its host did not notice.
void fail_unnoticed(Outcome& outcome, automation::Error error);

/// Adds what hosts have not done without raising an error, a sentence each: these are the reasons of a failure
/// that no host noticed, and are left out of what came about all the same.
void add_silent_failures(Outcome& outcome, const std::vector<std::string>& sentences);

/// A failure that only the command notices.
automation::Error host_error(std::string description);

/// Whether the call asks for a protected PDF.
bool wants_protection(const Request& request);

/// How many pages the events of a call have told of; nothing for none.
std::optional<long> pages_announced(const Outcome& outcome);

/// The failure of a host program that says it is done and has made no file.
automation::Error not_made(const std::string& output);

/// Calls the member of a request on a new `BuildPDF`. `watcher` is told every event as it happens; it may be
/// the one that shows progress.
///
/// Members pass over some things without a word, as their callers rely on. The one who typed the command is
/// told: a Distiller job that failed, a file that was not made, and a folder for temporary files that cannot
/// be had are failures here. So is what a server has refused, for a call that is told of the progress of
/// transfers; `progress` is empty where the transfer is none.
Outcome call_member(const Request& request, const platform::Platform& platform,
                    automation::EventSink& watcher, const TransferControl::Progress& progress = {});

}  // namespace foliant::cli
