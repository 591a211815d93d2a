#include "cli/report.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>

#include "automation/coerce.h"
#include "cli/quantities.h"
#include "cli/search_report.h"
#include "cli/secrets.h"
#include "cli/visible_text.h"
#include "core/dispatch.h"
#include "core/parameter_help.h"

namespace foliant::cli {

using automation::Value;
using nlohmann::ordered_json;

namespace {

ordered_json to_json(const Value& value) {
    if (const auto* truth = value.if_holds<bool>()) return *truth;
    if (const auto* text = value.if_holds<std::string>()) return *text;
    if (value.holds<std::int16_t>() || value.holds<std::int32_t>()) return automation::to_int32(value);
    if (value.holds<float>() || value.holds<double>()) return automation::to_double(value);
    if (const auto* array = value.if_holds<automation::ArrayPtr>()) {
        ordered_json items = ordered_json::array();
        for (const Value& item : (*array)->items)
            items.push_back(to_json(item));
        return items;
    }
    return nullptr;
}

/// File names may hold bytes that are no UTF-8; they show as the replacement character rather than as no
/// report.
std::string dump(const ordered_json& json) {
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

ordered_json error_to_json(const automation::Error& error) {
    ordered_json json{
        {"number", error.number()}, {"source", error.source()}, {"description", error.description()}};
    if (error.cause() != nullptr) json["cause"] = error_to_json(*error.cause());
    return json;
}

std::string sentence_of(const automation::Error& error) {
    return error.description().empty() ? "error " + std::to_string(error.number()) : error.description();
}

ordered_json arguments_to_json(const core::Member& member, const Outcome& outcome) {
    ordered_json arguments = ordered_json::object();
    for (const automation::Argument& argument : outcome.arguments) {
        const core::Parameter& parameter = member.parameters()[*core::find_parameter(member, argument.name)];
        const bool secret = core::parameter_role(member, parameter) == core::ParameterRole::password;
        arguments[argument.name] = secret ? ordered_json("***") : to_json(argument.value);
    }
    return arguments;
}

ordered_json events_to_json(const Outcome& outcome) {
    ordered_json events = ordered_json::array();
    for (const ReceivedEvent& event : outcome.events) {
        ordered_json arguments = ordered_json::array();
        for (const Value& argument : event.arguments)
            arguments.push_back(to_json(argument));
        events.push_back({{"name", event.name}, {"arguments", arguments}});
    }
    return events;
}

ordered_json made_to_json(const MadeFile& made) {
    return {{"file", made.path},
            {"pages", made.pages ? ordered_json(*made.pages) : ordered_json(nullptr)},
            {"bytes", made.bytes}};
}

/// Points to as many places as anybody can see.
double rounded(double points) {
    return std::round(points * 100) / 100;
}

ordered_json found_to_json(const Outcome& outcome) {
    ordered_json places = ordered_json::array();
    for (const hosts::FoundText& place : outcome.found) {
        const ordered_json rectangle{{"left", rounded(place.left)},
                                     {"bottom", rounded(place.bottom)},
                                     {"right", rounded(place.right)},
                                     {"top", rounded(place.top)}};
        places.push_back({{"page", place.page}, {"rectangle", rectangle}, {"context", place.context}});
    }
    return places;
}

ordered_json report_of(const core::Member* member, const Outcome& outcome) {
    ordered_json report;
    report["member"] = member == nullptr ? ordered_json(nullptr) : ordered_json(member->name);
    report["result"] = to_json(outcome.result);
    report["arguments"] = member == nullptr ? ordered_json::object() : arguments_to_json(*member, outcome);
    report["events"] = events_to_json(outcome);
    report["output"] = outcome.made ? made_to_json(*outcome.made) : ordered_json(nullptr);
    if (member != nullptr && is_search(*member)) report["found"] = found_to_json(outcome);
    report["leftOut"] = outcome.left_out;
    report["error"] = outcome.error ? error_to_json(*outcome.error) : ordered_json(nullptr);
    report["exitCode"] = outcome.exit_code;
    return report;
}

}  // namespace

std::string result_text(const Outcome& outcome, bool for_a_terminal) {
    if (outcome.result.holds<automation::Empty>()) return "";
    const std::string text = automation::to_text(outcome.result);
    return (for_a_terminal ? visible_text(text) : text) + "\n";
}

std::string error_text(const automation::Error& error) {
    std::string text = "foliant: " + visible_text(sentence_of(error)) + "\n";
    for (const auto* cause = error.cause().get(); cause != nullptr; cause = cause->cause().get())
        text += "  " + visible_text(sentence_of(*cause)) + "\n";
    return text;
}

std::string closing_line(const Outcome& outcome) {
    if (outcome.error || !outcome.made) return {};
    const MadeFile& made = *outcome.made;
    const std::string pages =
        made.pages ? std::to_string(*made.pages) + (*made.pages == 1 ? " page, " : " pages, ") : "";
    return "Wrote " + visible_line(made.path) + " (" + pages +
           readable_size(static_cast<std::uint64_t>(made.bytes)) + ")\n";
}

std::string left_out_text(const Outcome& outcome) {
    std::string text;
    for (const std::string& sentence : outcome.left_out)
        text += "foliant: " + visible_line(sentence) + "\n";
    return text;
}

std::string json_report(const core::Member& member, const Outcome& outcome) {
    return dump(report_of(&member, outcome));
}

std::string json_rehearsal(const core::Member& member, const Outcome& outcome,
                           const std::vector<std::string>& steps) {
    ordered_json report = report_of(&member, outcome);
    report["steps"] = steps;
    return dump(report);
}

std::string json_error(const core::Member* member, const automation::Error& error, int exit_code) {
    Outcome outcome;
    outcome.error = error;
    outcome.exit_code = exit_code;
    return dump(report_of(member, outcome));
}

int report_failure(const Request& request, int exit_code, const std::string& description) {
    const automation::Error error(automation::RuntimeError::internal_error,
                                  secrets_of(request).masked(description));
    if (request.options.json) std::cout << json_error(request.member, error, exit_code);
    std::cerr << error_text(error);
    return exit_code;
}

}  // namespace foliant::cli
