#include "cli/named_files.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/coerce.h"
#include "automation/text.h"
#include "core/dispatch.h"
#include "core/parameter_help.h"

namespace foliant::cli {

using automation::Value;
using core::ParameterRole;

namespace {

/// Calls `action` with every argument that is one of the member's parameters, and its role.
template <class Action>
void for_each(const core::Member& member, const automation::Arguments& arguments, Action&& action) {
    for (const automation::Argument& argument : arguments) {
        const auto place = core::find_parameter(member, argument.name);
        if (!place) continue;
        const core::Parameter& parameter = member.parameters()[*place];
        action(parameter, core::parameter_role(member, parameter), argument.value);
    }
}

}  // namespace

std::optional<NamedFile> output_of(const core::Member& member, const automation::Arguments& arguments) {
    std::optional<NamedFile> output;
    for_each(member, arguments,
             [&](const core::Parameter& parameter, ParameterRole role, const Value& value) {
                 if (role == ParameterRole::output_file) output = {&parameter, automation::to_text(value)};
             });
    return output;
}

std::optional<NamedFile> changed_in_place(const core::Member& member,
                                          const automation::Arguments& arguments) {
    constexpr std::array<std::string_view, 4> members{"CreateBookmarkInPDF", "CreateBookmarksInPDF",
                                                      "CreateLinksInPDF", "SetOpenPassword"};
    if (std::ranges::find(members, member.name) == members.end()) return std::nullopt;
    const std::vector<NamedFile> inputs = inputs_of(member, arguments);
    return inputs.empty() ? std::nullopt : std::optional(inputs.front());
}

std::optional<NamedFolder> folder_of_inputs(const automation::Arguments& arguments) {
    std::string folder = text_of(arguments, "strDirectory");
    if (folder.empty()) return std::nullopt;
    const std::string pattern = text_of(arguments, "strFiles");
    return NamedFolder{std::move(folder), pattern.empty() ? "*.pdf" : pattern};
}

std::optional<Value> argument_of(const automation::Arguments& arguments, std::string_view parameter) {
    for (const automation::Argument& argument : arguments)
        if (automation::equal_ignoring_case(argument.name, parameter)) return argument.value;
    return std::nullopt;
}

std::string text_of(const automation::Arguments& arguments, std::string_view parameter) {
    const auto given = argument_of(arguments, parameter);
    return given ? automation::to_text(*given) : "";
}

std::vector<NamedFile> inputs_of(const core::Member& member, const automation::Arguments& arguments) {
    std::vector<NamedFile> inputs;
    for_each(member, arguments,
             [&](const core::Parameter& parameter, ParameterRole role, const Value& value) {
                 if (role == ParameterRole::input_file) {
                     std::string path = automation::to_text(value);
                     if (!path.empty() || !parameter.optional)
                         inputs.push_back({&parameter, std::move(path)});
                 } else if (role == ParameterRole::file_list) {
                     const auto* list = value.if_holds<automation::ArrayPtr>();
                     if (list == nullptr) return;
                     for (const Value& item : (*list)->items)
                         inputs.push_back({&parameter, automation::to_text(item)});
                 }
             });
    return inputs;
}

}  // namespace foliant::cli
