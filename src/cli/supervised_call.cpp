#include "cli/supervised_call.h"

#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

#include "automation/error.h"
#include "cli/call_log.h"
#include "cli/exit_codes.h"
#include "cli/kept_file.h"
#include "cli/memory_use.h"
#include "cli/named_files.h"
#include "cli/output_guard.h"
#include "cli/quantities.h"
#include "cli/report.h"
#include "cli/search_report.h"
#include "cli/supervisor.h"
#include "cli/visible_text.h"
#include "cli/worker_call.h"
#include "hosts/pending_file.h"

namespace foliant::cli {

using automation::Error;
using automation::RuntimeError;
using platform::local::LocalMachine;

namespace {

std::string crash_text(const std::string& member, int signal) {
    if (signal == SIGKILL) {
        return member + " was killed from outside (signal 9), as the system does when its memory is used up.";
    }
    return "An engine crashed (signal " + std::to_string(signal) + ") during " + member +
           ". That is a fault of the engine, which the document has brought to light.";
}

int conclude(const Request& request, const Ending& ending, const Limits& limits) {
    const std::string member(request.member->name);
    switch (ending.kind) {
        case Ending::Kind::timed_out:
            return report_failure(request, exit_time_limit,
                                  member +
                                      " had not ended when the time limit was over, and was stopped. "
                                      "Give it more time with --timeout, or none to wait without a limit.");
        case Ending::Kind::out_of_memory:
            return report_failure(
                request, exit_memory_limit,
                member + " needed more than " + readable_size(limits.memory_bytes) +
                    " of memory, the limit, and was stopped. Give it more with --memory SIZE, "
                    "or --memory none for no limit.");
        case Ending::Kind::interrupted:
            return report_failure(request, ending.code == SIGINT ? exit_interrupted : exit_terminated,
                                  member + " was interrupted.");
        case Ending::Kind::crashed:
            return report_failure(request, exit_host_failure, crash_text(member, ending.code));
        case Ending::Kind::finished:
            break;
    }
    return ending.code;
}

Limits limits_of(const CallOptions& options) {
    return {options.deadline, options.memory_bytes.value_or(usual_memory_limit())};
}

/// What engines write to standard output and standard error, kept for the log.
posix::FileDescriptor engine_output_file(const LocalMachine& machine) {
    const auto path = machine.private_folder() / "engine-output";
    return posix::FileDescriptor(
        ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600));
}

/// A worker that was stopped leaves its status line.
void clear_status_line(const Request& request, const Ending& ending) {
    const bool moving = !request.options.quiet && !request.options.verbose && isatty(STDERR_FILENO) == 1;
    if (moving && ending.kind != Ending::Kind::finished) std::cerr << "\r\x1B[K" << std::flush;
}

/// The files that a call could cost its user. The supervisor knows what to hold on to before there is a worker, so that
/// both can put it back.
struct GuardedFiles {
    KeptFile output;
    ReplacementLock changed;
    std::vector<std::string> made;  ///< the paths of both

    explicit GuardedFiles(const Request& request) {
        if (const auto file = output_of(*request.member, request.arguments)) {
            output.expect(file->path);
            made.push_back(file->path);
        }
        if (const auto file = changed_in_place(*request.member, request.arguments)) {
            changed.open(file->path);
            made.push_back(file->path);
        }
    }

    /// The new output stays.
    void drop() noexcept {
        output.take_notice();
        output.drop();
    }

    /// Nothing was made: what stood there is back, and nothing else is left of processes that were killed.
    void put_back(pid_t group) noexcept {
        output.take_notice();
        output.put_back();
        for (const std::string& path : made)
            hosts::remove_pending_files(path, group);
    }
};

/// The first thing that the worker does. Raises why the member is not called.
void guard(GuardedFiles& files, const Request& request) {
    const auto output = output_of(*request.member, request.arguments);
    if (output && KeptFile::bring_back_lost(output->path)) {
        std::cerr << "foliant: " << visible_line(output->path)
                  << " is back: a call that was killed had left it behind under another name.\n";
    }
    if (const auto refused = refusal(request)) throw Error(RuntimeError::path_file_access, *refused);
    if (output) files.output.keep();
    if (const auto file = changed_in_place(*request.member, request.arguments))
        files.changed.take(file->path, "Wait for it.");
}

/// The worker's part. What fails in it beyond the call itself is a failure, too.
int work(const Request& request, LocalMachine& machine, GuardedFiles& files, CallLog& log,
         int engine_output) {
    try {
        guard(files, request);
    } catch (...) {
        const std::string why = automation::current_error().description();
        log.file_line("refused: " + why);
        return report_failure(request, exit_usage, why);
    }
    try {
        return make_call(request, machine, files.output, log, engine_output);
    } catch (...) {
        return report_failure(request, failure_code(*request.member),
                              automation::current_error().description());
    }
}

int supervise(const Request& request, LocalMachine& machine, CallLog& log) {
    GuardedFiles files(request);
    const posix::FileDescriptor engine_output =
        log.is_wanted() ? engine_output_file(machine) : posix::FileDescriptor();
    Work plan;
    plan.call = [&] { return work(request, machine, files, log, engine_output.get()); };
    plan.start = [&] { start_host_ahead(*request.member, machine); };
    plan.meanwhile = [&] { machine.remove_folders_of_the_dead(); };
    plan.settle = [&](const Ending& ending) {
        const bool succeeded = ending.kind == Ending::Kind::finished &&
                               (ending.code == exit_success || ending.code == exit_incomplete);
        succeeded ? files.drop() : files.put_back(ending.group);
        machine.remove_private_folder();
    };
    plan.when_orphaned = [&] {
        files.put_back(::getpgrp());
        machine.remove_private_folder();
    };
    const Limits limits = limits_of(request.options);
    const Ending ending = run_supervised(plan, limits);
    clear_status_line(request, ending);
    if (engine_output) log.engine_lines(engine_output.get());
    const int code = conclude(request, ending, limits);
    log.file_line("exit code " + std::to_string(code));
    return code;
}

}  // namespace

int call_supervised(const Request& request, LocalMachine& machine) {
    try {
        CallLog log(request);
        return supervise(request, machine, log);
    } catch (const Error& error) {
        return report_failure(request, exit_usage, error.description());
    }
}

}  // namespace foliant::cli
