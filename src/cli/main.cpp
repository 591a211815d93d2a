#include <csignal>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <unistd.h>

#include "automation/error.h"
#include "cli/call.h"
#include "cli/completion.h"
#include "cli/exit_codes.h"
#include "cli/manual.h"
#include "cli/progress.h"
#include "cli/rehearsal.h"
#include "cli/report.h"
#include "cli/supervisor.h"
#include "cli/terminal.h"
#include "cli/tools.h"
#include "platform/local/local_machine.h"

namespace {

using namespace foliant;
using cli::Request;
using platform::local::LocalMachine;

platform::local::LocalOptions local_options() {
    platform::local::LocalOptions options;
    std::error_code none;
    options.executable = std::filesystem::read_symlink("/proc/self/exe", none);
    options.on_message_box = [](const std::string& prompt, const std::string& title, std::uint32_t) {
        std::cerr << title << ": " << prompt << '\n';
    };
    options.on_trouble = [](const std::string& sentence) { std::cerr << "foliant: " << sentence << '\n'; };
    return options;
}

/// Makes the call and reports it; this runs in the worker.
int work(const Request& request, LocalMachine& machine) {
    const bool talkative = !request.options.quiet && isatty(STDERR_FILENO) == 1;
    cli::ProgressBar bar(talkative ? &std::cerr : nullptr);
    const cli::Outcome outcome = cli::call_member(request, machine.platform(), bar);
    bar.finish();
    std::cout << (request.options.json ? cli::json_report(*request.member, outcome)
                                       : cli::result_text(outcome));
    if (outcome.error) {
        std::cerr << cli::error_text(*outcome.error);
    } else if (talkative) {
        std::cerr << cli::closing_line(*request.member, outcome, machine.platform());
    }
    if (!std::cout.flush()) {
        std::cerr << "foliant: the result could not be written to standard output\n";
        return outcome.error ? outcome.exit_code : cli::exit_failure;
    }
    return outcome.exit_code;
}

/// Reports a call that did not end by itself.
int conclude(const Request& request, int exit_code, const std::string& description) {
    const automation::Error error(automation::RuntimeError::internal_error, description);
    if (request.options.json) std::cout << cli::json_error(*request.member, error, exit_code);
    std::cerr << cli::error_text(error);
    return exit_code;
}

int call(const Request& request, LocalMachine& machine) {
    const cli::Ending ending =
        cli::run_supervised([&] { return work(request, machine); }, request.options.timeout_seconds,
                            [&] { machine.remove_private_folder(); });
    const std::string member(request.member->name);
    switch (ending.kind) {
        case cli::Ending::Kind::timed_out:
            return conclude(request, cli::exit_time_limit,
                            member +
                                " had not ended when the time limit was over, and was stopped. "
                                "Give it more time with --timeout, or none to wait without a limit.");
        case cli::Ending::Kind::interrupted:
            return conclude(request, ending.code == SIGINT ? cli::exit_interrupted : cli::exit_terminated,
                            member + " was interrupted.");
        case cli::Ending::Kind::crashed:
            return conclude(request, cli::exit_host_failure,
                            "An engine crashed (signal " + std::to_string(ending.code) + ") during " +
                                member + ". The document may be damaged.");
        case cli::Ending::Kind::finished:
            break;
    }
    return ending.code;
}

int run(const Request& request) {
    switch (request.action) {
        case Request::Action::completion:
            std::cout << cli::completion_script(request.words.front());
            return cli::exit_success;
        case Request::Action::manual:
            std::cout << cli::manual_page();
            return cli::exit_success;
        default:
            break;
    }
    LocalMachine machine(local_options());
    switch (request.action) {
        case Request::Action::call:
            return call(request, machine);
        case Request::Action::rehearse:
            return cli::rehearse(request, machine.platform(), std::cout, std::cerr);
        case Request::Action::hosts:
            return cli::show_hosts(machine);
        default:
            return cli::run_registry(request, machine);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const cli::Parsed parsed = cli::parse({argv + 1, argv + argc}, cli::ask_on_terminal);
        std::cout << parsed.output;
        std::cerr << parsed.error;
        return parsed.request ? run(*parsed.request) : parsed.exit_code;
    } catch (...) {
        const automation::Error error = automation::current_error();
        std::cerr << cli::error_text(error);
        return cli::exit_code_for(error);
    }
}
