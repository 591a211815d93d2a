#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "automation/error.h"
#include "cli/completion.h"
#include "cli/exit_codes.h"
#include "cli/manual.h"
#include "cli/memory_use.h"
#include "cli/output_guard.h"
#include "cli/own_streams.h"
#include "cli/rehearsal.h"
#include "cli/report.h"
#include "cli/restart.h"
#include "cli/secrets.h"
#include "cli/supervised_call.h"
#include "cli/terminal.h"
#include "cli/tools.h"
#include "cli/visible_text.h"
#ifdef FOLIANT_WITH_ACROBAT
#include "hosts/acrobat/front/front_module.h"
#endif
#include "platform/local/local_machine.h"

namespace {

using namespace foliant;
using cli::Request;
using platform::local::LocalMachine;

platform::local::LocalOptions local_options(const cli::CallOptions& asked) {
    platform::local::LocalOptions options;
    std::error_code none;
    options.executable = std::filesystem::read_symlink("/proc/self/exe", none);
#ifdef FOLIANT_WITH_ACROBAT
    options.linked_modules = {{"acrobat", hosts::acrobat::front::front_module}};
#endif
    options.on_message_box = [](const std::string& prompt, const std::string& title, std::uint32_t) {
        std::cerr << cli::visible_line(title) << ": " << cli::visible_text(prompt) << '\n';
    };
    options.on_trouble = [](const std::string& sentence) {
        std::cerr << "foliant: " << cli::visible_text(sentence) << '\n';
    };
    // Hosts have no word for "no limit".
    constexpr std::uint64_t without_end = std::uint64_t{1} << 62U;
    const std::uint64_t limit = asked.memory_bytes.value_or(cli::usual_memory_limit());
    options.memory_limit_bytes = limit == 0 ? without_end : limit;
    return options;
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
    LocalMachine machine(local_options(request.options));
    switch (request.action) {
        case Request::Action::call:
            return cli::call_supervised(request, machine);
        case Request::Action::rehearse:
            if (const auto refused = cli::refusal(request))
                return cli::report_failure(request, cli::exit_usage, *refused);
            return cli::rehearse(request, machine.platform(), std::cout, std::cerr);
        case Request::Action::hosts:
            return cli::show_hosts(request, machine);
        default:
            return cli::run_registry(request, machine);
    }
}

/// A result that nobody gets is no success.
int with_output_written(int code) {
    if (std::cout.flush() || code != cli::exit_success) return code;
    std::cerr << "foliant: the result could not be written to standard output\n";
    return cli::exit_failure;
}

/// Ends the process when everything has been said, without going through what libraries have left to do then: the kernel
/// is quicker. The sanitizers look for leaks there.
void leave([[maybe_unused]] int code) {
#ifndef __SANITIZE_ADDRESS__
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(code);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    try {
        cli::fill_closed_streams();
        const std::span<char* const> given(argv + 1, argv + argc);
        const std::vector<std::string> words(given.begin(), given.end());
        cli::restart_for_many_objects(words, argv);
        cli::secrets_among(words).erase_from(given);
        const cli::Parsed parsed = cli::parse(words, cli::ask_on_terminal);
        if (parsed.request) cli::secrets_of(*parsed.request).erase_from(given);
        std::cout << parsed.output;
        std::cerr << parsed.error;
        const int code = with_output_written(parsed.request ? run(*parsed.request) : parsed.exit_code);
        leave(code);
        return code;
    } catch (...) {
        const automation::Error error = automation::current_error();
        std::cerr << cli::error_text(error);
        return cli::exit_code_for(error);
    }
}
