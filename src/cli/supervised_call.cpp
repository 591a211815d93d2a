#include "cli/supervised_call.h"

#include <csignal>
#include <iostream>
#include <unistd.h>

#include "automation/error.h"
#include "cli/call.h"
#include "cli/exit_codes.h"
#include "cli/kept_file.h"
#include "cli/machine_check.h"
#include "cli/memory_use.h"
#include "cli/named_files.h"
#include "cli/output_check.h"
#include "cli/output_guard.h"
#include "cli/preflight.h"
#include "cli/progress.h"
#include "cli/quantities.h"
#include "cli/report.h"
#include "cli/supervisor.h"

namespace foliant::cli {

using automation::Error;
using automation::RuntimeError;
using platform::local::LocalMachine;

namespace {

/// The call with everything that makes its success one.
Outcome make(const Request& request, LocalMachine& machine, const KeptFile& kept, ProgressBar& bar) {
    Outcome outcome;
    try {
        require_machine(request, machine);
        std::vector<std::string> left_out = preflight(request, machine.platform());
        outcome = call_member(request, machine.platform(), bar);
        outcome.left_out = std::move(left_out);
    } catch (...) {
        fail(outcome, automation::current_error());
    }
    if (outcome.error) return outcome;
    if (kept.is_in_place()) {
        fail(outcome, not_made(output_of(*request.member, outcome.arguments)->path));
    } else if (auto problem = unkept_promise(request, machine)) {
        fail(outcome, *problem);
    } else {
        check_output(request, outcome);
    }
    if (!outcome.error && !outcome.left_out.empty()) outcome.exit_code = exit_incomplete;
    return outcome;
}

int make_and_report(const Request& request, LocalMachine& machine, const KeptFile& kept) {
    const bool talkative = !request.options.quiet && isatty(STDERR_FILENO) == 1;
    ProgressBar bar(talkative ? &std::cerr : nullptr);
    const Outcome outcome = make(request, machine, kept, bar);
    bar.finish();
    std::cout << (request.options.json ? json_report(*request.member, outcome)
                                       : result_text(outcome, isatty(STDOUT_FILENO) == 1));
    std::cerr << left_out_text(outcome);
    if (outcome.error) {
        std::cerr << error_text(*outcome.error);
    } else if (talkative) {
        std::cerr << closing_line(outcome);
    }
    if (!std::cout.flush()) {
        std::cerr << "foliant: the result could not be written to standard output\n";
        return outcome.error ? outcome.exit_code : exit_failure;
    }
    return outcome.exit_code;
}

/// Makes the call and reports it; this runs in the worker.
int work(const Request& request, LocalMachine& machine, const KeptFile& kept) {
    try {
        return make_and_report(request, machine, kept);
    } catch (...) {
        return report_failure(request, exit_failure, automation::current_error().description());
    }
}

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

}  // namespace

int call_supervised(const Request& request, LocalMachine& machine) {
    if (const auto refused = refusal(request)) return report_failure(request, exit_usage, *refused);
    KeptFile kept;
    Work plan;
    plan.call = [&] { return work(request, machine, kept); };
    plan.prepare = [&] {
        if (const auto output = output_of(*request.member, request.arguments)) kept.keep(output->path);
    };
    plan.settle = [&](const Ending& ending) {
        const bool succeeded = ending.kind == Ending::Kind::finished &&
                               (ending.code == exit_success || ending.code == exit_incomplete);
        succeeded ? kept.drop() : kept.put_back();
        machine.remove_private_folder();
    };
    plan.when_orphaned = [&] {
        kept.put_back();
        machine.remove_private_folder();
    };
    try {
        const Limits limits = limits_of(request.options);
        return conclude(request, run_supervised(plan, limits), limits);
    } catch (const Error& error) {
        return report_failure(request, exit_usage, error.description());
    }
}

}  // namespace foliant::cli
