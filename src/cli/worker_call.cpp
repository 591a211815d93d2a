#include "cli/worker_call.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <unistd.h>

#include "automation/coerce.h"
#include "automation/error.h"
#include "cli/call.h"
#include "cli/exit_codes.h"
#include "cli/hand_over.h"
#include "cli/machine_check.h"
#include "cli/named_files.h"
#include "cli/output_check.h"
#include "cli/own_streams.h"
#include "cli/preflight.h"
#include "cli/progress.h"
#include "cli/report.h"
#include "cli/search_report.h"
#include "cli/secrets.h"
#include "cli/status_line.h"
#include "cli/trace.h"
#include "cli/visible_text.h"
#include "registered/classes.h"

namespace foliant::cli {

using platform::local::LocalMachine;

namespace {

/// Gives every event to the log and to the bar, which takes the place of the status line.
class Watcher : public automation::EventSink {
  public:
    Watcher(StatusLine& status, ProgressBar& bar, CallLog& log) : status_(status), bar_(bar), log_(log) {}

    void notify(std::string_view event, std::span<const automation::Value> arguments) override {
        std::string line = "event " + std::string(event);
        for (const automation::Value& argument : arguments)
            line += " " + automation::to_text(argument);
        log_.line(line);
        if (event == "JobStart") status_.stop();
        bar_.notify(event, arguments);
    }

  private:
    StatusLine& status_;
    ProgressBar& bar_;
    CallLog& log_;
};

void check_success(const Request& request, LocalMachine& machine, const KeptFile& kept, Outcome& outcome) {
    if (kept.is_in_place()) {
        fail_unnoticed(outcome, not_made(output_of(*request.member, outcome.arguments)->path));
    } else if (auto problem = unkept_promise(request, machine)) {
        fail(outcome, *problem);
    } else {
        check_output(request, outcome);
    }
}

/// The call with everything that makes its success one.
Outcome make(const Request& request, LocalMachine& machine, const platform::Platform& outside,
             const KeptFile& kept, automation::EventSink& watcher,
             const TransferControl::Progress& progress) {
    Outcome outcome;
    try {
        require_machine(request, machine);
        std::vector<std::string> left_out = preflight(request, machine.platform());
        require_paper(request, machine);
        {
            std::optional<OwnersOnly> until_it_has_its_rights;
            if (kept) until_it_has_its_rights.emplace();
            outcome = call_member(request, outside, watcher, progress);
        }
        outcome.left_out = std::move(left_out);
    } catch (...) {
        fail(outcome, automation::current_error());
    }
    machine.dismiss_hosts();
    if (!outcome.error) check_success(request, machine, kept, outcome);
    add_silent_failures(outcome, machine.failures_told());
    if (!outcome.error && !outcome.left_out.empty()) outcome.exit_code = exit_incomplete;
    hand_over(request, machine, outcome);
    return outcome;
}

/// Has hosts tell what a search finds: the first place, or all of them for a report in JSON. Members that
/// search for something of their own are not asked.
void watch_search(const Request& request, LocalMachine& machine, std::vector<hosts::FoundText>& found) {
    constexpr std::size_t most_places = 1'000'000;
    if (!is_search(*request.member)) return;
    machine.on_found([&request, &found](const hosts::FoundText& place) {
        found.push_back(place);
        return request.options.json && found.size() < most_places;
    });
}

/// Whether pages are wholes to the member: it counts them, or puts them behind others.
bool takes_pages_whole(const core::Member& member) {
    constexpr std::array<std::string_view, 3> names{"GetNumPagesPDF", "CreatePDFfromMultiPDF",
                                                    "CreatePDFfromMultiPDFinDir"};
    return std::ranges::find(names, member.name) != names.end();
}

std::string activity(const Request& request) {
    if (request.member->family == core::Family::transfer) return "Transferring";
    const auto inputs = inputs_of(*request.member, request.arguments);
    if (inputs.empty()) return std::string(request.member->name);
    return "Converting " + visible_line(std::filesystem::path(inputs.front().path).filename().string());
}

int report(const Request& request, const Outcome& outcome, CallLog& log, bool talkative, bool to_a_terminal) {
    std::cout << (request.options.json ? json_report(*request.member, outcome)
                                       : result_text(outcome, to_a_terminal) + found_text(outcome));
    std::cerr << left_out_text(outcome);
    if (outcome.error) {
        std::cerr << error_text(*outcome.error);
        log.file_line("failed: " + outcome.error->description());
    } else if (talkative) {
        std::cerr << closing_line(outcome);
    }
    if (!std::cout.flush()) {
        std::cerr << "foliant: the result could not be written to standard output\n";
        return outcome.error ? outcome.exit_code : failure_code(*request.member);
    }
    return outcome.exit_code;
}

}  // namespace

void start_host_ahead(const core::Member& member, LocalMachine& machine) noexcept {
    if (takes_pages_whole(member)) machine.expect({.text = false, .folders = false, .takes_turns = true});
    if (member.family == core::Family::pdf) machine.start_ahead(registered::acrobat);
    if (member.family != core::Family::transfer) return;
    machine.expect({.text = false, .folders = false});
    machine.start_ahead(registered::transfer_control);
}

int make_call(const Request& request, LocalMachine& machine, const KeptFile& kept, CallLog& log,
              int engine_output) {
    const bool to_a_terminal = isatty(STDOUT_FILENO) == 1;
    const bool talkative = !request.options.quiet && isatty(STDERR_FILENO) == 1;
    const bool moving = talkative && !request.options.verbose;
    // These last as long as the process does: whoever writes a message late still may.
    static StatusLine status(moving ? STDERR_FILENO : -1, activity(request));
    static const OwnStreams streams(engine_output, [] { status.hide(); });
    machine.on_progress([](std::string_view doing, int percent) {
        const std::string part = percent < 0 ? "" : " " + std::to_string(percent) + " %";
        status.tell(visible_line(doing) + part);
    });
    ProgressBar bar(moving ? &std::cerr : nullptr);
    Watcher watcher(status, bar, log);
    const TracedPlatform traced(machine.platform(), [&log](const std::string& line) { log.line(line); });
    std::vector<hosts::FoundText> found;
    watch_search(request, machine, found);
    Outcome outcome = secrets_of(request).masked(
        make(request, machine, log.is_wanted() ? traced.platform() : machine.platform(), kept, watcher,
             [](std::int32_t percent) { status.tell(std::to_string(percent) + " %"); }));
    outcome.found = std::move(found);
    conclude_search(*request.member, outcome);
    status.stop();
    bar.finish();
    return report(request, outcome, log, talkative, to_a_terminal);
}

}  // namespace foliant::cli
