#include "cli/hand_over.h"

#include <string>
#include <system_error>

#include "cli/exit_codes.h"
#include "platform/local/viewers.h"

namespace foliant::cli {

using platform::local::LocalMachine;
using platform::local::ProgramCall;

namespace {

std::string name_of(const std::filesystem::path& path) {
    return path.filename().string();
}

void give_up(Outcome& outcome, int code, std::string sentence) {
    outcome.left_out.push_back(std::move(sentence));
    outcome.exit_code = code;
}

void start(const ProgramCall& call, Outcome& outcome) {
    try {
        platform::local::start_to_outlive(call);
    } catch (const std::system_error& failure) {
        give_up(outcome, exit_not_shown,
                call.program.string() + " cannot be started: " + failure.code().message() + ".");
    }
}

void show(const hosts::LeftOpen& document, Outcome& outcome) {
    const std::string page = "page " + std::to_string(document.page) + " of " + name_of(document.document);
    const auto viewer = platform::local::find_viewer(document.document, document.page);
    if (!viewer)
        return give_up(outcome, exit_not_shown,
                       "Nothing on this machine shows PDFs, and " + page +
                           " was not shown. Install okular, evince, qpdfview or xpdf.");
    if (!platform::local::has_screen())
        return give_up(outcome, exit_not_shown,
                       "There is no screen: " + name_of(viewer->program) + " would have shown " + page + ".");
    start(*viewer, outcome);
}

void read_aloud(const hosts::LeftOpen& document, Outcome& outcome) {
    if (document.speech.empty()) return;
    if (const auto reader = platform::local::find_reader(document.speech)) return start(*reader, outcome);
    give_up(outcome, exit_not_shown,
            "Nothing on this machine reads " + name_of(document.document) +
                " aloud. Install speech-dispatcher or espeak-ng.");
}

}  // namespace

void hand_over(const Request& request, const LocalMachine& machine, Outcome& outcome) {
    // Others show what they have done in passing; this one is called to show it.
    if (request.member->name != "OpenPDF" || outcome.error || !machine.left_open()) return;
    show(*machine.left_open(), outcome);
    read_aloud(*machine.left_open(), outcome);
}

}  // namespace foliant::cli
