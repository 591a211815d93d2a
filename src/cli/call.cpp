#include "cli/call.h"

#include <algorithm>

#include "automation/coerce.h"
#include "cli/exit_codes.h"
#include "cli/named_files.h"
#include "cli/option_names.h"
#include "cli/visible_text.h"
#include "core/dispatch.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::cli {

using automation::Access;
using automation::Error;
using automation::Value;

namespace {

/// Keeps every event and passes it on.
class Recorder : public automation::EventSink {
  public:
    Recorder(std::vector<ReceivedEvent>& events, automation::EventSink& next)
        : events_(events), next_(next) {}
    void notify(std::string_view event, std::span<const Value> arguments) override {
        events_.push_back({std::string(event), {arguments.begin(), arguments.end()}});
        next_.notify(event, arguments);
    }

  private:
    std::vector<ReceivedEvent>& events_;
    automation::EventSink& next_;
};

const ReceivedEvent* find_event(const Outcome& outcome, std::string_view name) {
    for (const ReceivedEvent& event : outcome.events) {
        if (event.name == name) return &event;
    }
    return nullptr;
}

/// Distiller's own words begin so when it is the output that cannot be written.
bool tells_of_the_output(const std::string& message) {
    return message.starts_with("Cannot write the PDF ");
}

Error job_failure(const Outcome& outcome, const ReceivedEvent& failed) {
    std::string description =
        "Distiller could not convert " + automation::to_text(failed.arguments.at(0)) + ".";
    bool unwritable = false;
    for (const ReceivedEvent& event : outcome.events) {
        if (event.name != "LogMessage") continue;
        const std::string message = automation::to_text(event.arguments.at(0));
        unwritable = unwritable || tells_of_the_output(message);
        description += "\n  " + visible_line(message);
    }
    return unwritable ? Error(automation::RuntimeError::device_io_error, description)
                      : host_error(description);
}

/// The failure that the member did not notice, if there was one.
std::optional<Error> unnoticed_failure(const core::Member& member, const Outcome& outcome,
                                       const platform::Platform& platform) {
    if (const ReceivedEvent* failed = find_event(outcome, "JobFail")) return job_failure(outcome, *failed);
    const auto output = output_of(member, outcome.arguments);
    if (!output) return std::nullopt;
    try {
        platform.files.length(output->path);
        return std::nullopt;
    } catch (const Error&) {
        return not_made(output->path);
    }
}

void put_temporary_folder(core::BuildPDF& object, const std::string& folder) {
    if (folder.empty()) return;
    object.put_TempFilePath(folder);
    if (object.get_TempFilePath().starts_with(folder)) return;
    throw Error(automation::RuntimeError::path_file_access,
                "The folder for temporary files cannot be had: " + folder + ".");
}

/// The files that a member which transfers one was given.
hosts::TransferCommand transfer_meant(const core::Member& member, const automation::Arguments& arguments) {
    using Verb = hosts::TransferCommand::Verb;
    return {member.name == "UploadFile" ? Verb::put : Verb::get, text_of(arguments, "strLocalFile"),
            text_of(arguments, "strRemoteFile")};
}

/// A script hands over the control that transfers its files. A command line has none, so the command makes it.
/// Returns the one that can be asked what the server has refused, nullptr where nobody has to be.
std::shared_ptr<TransferControl> hand_over_control(const core::Member& member,
                                                   const platform::Platform& platform,
                                                   const TransferControl::Progress& progress,
                                                   automation::Arguments& arguments) {
    std::shared_ptr<TransferControl> watched;
    for (const core::Parameter& parameter : member.parameters()) {
        if (parameter.type != core::ValueType::object) continue;
        automation::ObjectPtr control = platform.servers.create(registered::transfer_control);
        if (progress) {
            watched = std::make_shared<TransferControl>(std::move(control), transfer_meant(member, arguments),
                                                        progress);
            control = watched;
        }
        arguments.emplace_back(parameter.name, std::move(control));
    }
    return watched;
}

/// Nobody who asked for the call knows of it.
void take_control_back(automation::Arguments& arguments) {
    std::erase_if(arguments, [](const automation::Argument& argument) {
        return argument.value.holds<automation::ObjectPtr>();
    });
}

/// A host knows that it may have no more memory, the command how to give it more.
Error with_remedy(const Error& error) {
    if (error.cause() != nullptr)
        return {error.number(), error.source(), error.description(),
                std::make_shared<const Error>(with_remedy(*error.cause()))};
    if (!error.is(automation::RuntimeError::out_of_memory)) return error;
    return {error.number(), error.source(),
            error.description() + " Give it more with --memory SIZE, or --memory none for no limit."};
}

/// A host that was not told what it cannot do without says so in its words; how to say it on a command line is this.
Error with_order(const Request& request, const Error& error) {
    const auto is_left_out = [&](const core::Parameter& parameter) {
        return is_needed_all_the_same(*request.member, parameter) &&
               !argument_of(request.arguments, parameter.name);
    };
    if (exit_code_for(error) != exit_host_failure ||
        std::ranges::none_of(request.member->parameters(), is_left_out))
        return error;
    return {error.number(), error.source(),
            error.description() + "\nThe order is: " + usage_line(*request.member), error.cause()};
}

}  // namespace

Error host_error(std::string description) {
    return {session::component_error_number, std::string(session::application_title), std::move(description)};
}

bool wants_protection(const Request& request) {
    const auto wish = argument_of(request.arguments, "blnApplySecurity");
    return wish && automation::to_bool(*wish);
}

std::optional<long> pages_announced(const Outcome& outcome) {
    const auto pages = std::count_if(outcome.events.begin(), outcome.events.end(),
                                     [](const ReceivedEvent& event) { return event.name == "PageNumber"; });
    return pages == 0 ? std::nullopt : std::optional<long>(pages);
}

void fail(Outcome& outcome, const Error& error) {
    outcome.exit_code = exit_code_for(error);
    outcome.error = with_remedy(error);
}

void fail_unnoticed(Outcome& outcome, Error error) {
    outcome.host_noticed_nothing = true;
    fail(outcome, error);
}

void add_silent_failures(Outcome& outcome, const std::vector<std::string>& sentences) {
    if (!outcome.error) {
        outcome.left_out.insert(outcome.left_out.end(), sentences.begin(), sentences.end());
    } else if (outcome.host_noticed_nothing) {
        std::string description = outcome.error->description();
        for (const std::string& sentence : sentences)
            description += "\n  " + visible_line(sentence);
        outcome.error = Error(outcome.error->number(), outcome.error->source(), std::move(description));
    }
}

Error not_made(const std::string& output) {
    return host_error("The host program reported success, but " + output + " was not made.");
}

Outcome call_member(const Request& request, const platform::Platform& platform,
                    automation::EventSink& watcher, const TransferControl::Progress& progress) {
    Outcome outcome;
    Recorder recorder(outcome.events, watcher);
    outcome.arguments = request.arguments;
    try {
        core::BuildPDF object(platform, recorder);
        put_temporary_folder(object, request.options.temp_path);
        const auto control = hand_over_control(*request.member, platform, progress, outcome.arguments);
        const bool property = request.member->kind == core::MemberKind::property_get;
        outcome.result = core::invoke(object, request.member->dispid, property ? Access::get : Access::call,
                                      outcome.arguments);
        if (auto refusal = control == nullptr ? std::nullopt : control->refusal()) {
            fail(outcome, *refusal);
        } else if (auto failure = unnoticed_failure(*request.member, outcome, platform)) {
            fail_unnoticed(outcome, std::move(*failure));
        }
    } catch (...) {
        fail(outcome, with_order(request, automation::current_error()));
    }
    take_control_back(outcome.arguments);
    return outcome;
}

}  // namespace foliant::cli
