#include "cli/option_names.h"

#include <algorithm>
#include <cctype>

#include "core/parameter_help.h"

namespace foliant::cli {
namespace {

bool is_upper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool is_lower(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

/// The lower-case letters in front of the first capital; a name without a capital ("inet") has no prefix.
std::string_view without_prefix(std::string_view name) {
    std::size_t first = 0;
    while (first < name.size() && !is_upper(name[first]))
        ++first;
    return first == name.size() ? name : name.substr(first);
}

}  // namespace

std::string option_name(std::string_view parameter) {
    const std::string_view name = without_prefix(parameter);
    std::string words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool word_begins = i > 0 && is_upper(name[i]) &&
                                 (is_lower(name[i - 1]) || (i + 1 < name.size() && is_lower(name[i + 1])));
        if (word_begins) words += '-';
        words += static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
    }
    return words;
}

std::string placeholder(std::string_view parameter) {
    std::string text = option_name(parameter);
    for (char& c : text)
        c = c == '-' ? '_' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

bool is_needed_all_the_same(const core::Member& member, const core::Parameter& parameter) {
    return member.name == "CreatePDFfromAutoCAD" && parameter.name == "varLayout";
}

std::string usage_line(const core::Member& member) {
    std::string line = "foliant " + std::string(member.name);
    for (const core::Parameter& parameter : member.parameters()) {
        if (is_needed_all_the_same(member, parameter))
            line += " --" + option_name(parameter.name) + " " + placeholder(parameter.name);
        if (parameter.optional || is_made_by_the_command(parameter)) continue;
        line += (is_shown_with_option(member, parameter) ? " --" + option_name(parameter.name) : "") + " " +
                placeholder(parameter.name) +
                (core::is_list(core::parameter_role(member, parameter)) ? " ..." : "");
    }
    return line;
}

bool may_stand_in_order(const core::Member& member, const core::Parameter& parameter) {
    const auto is_list = [&](const core::Parameter& each) {
        return core::is_list(core::parameter_role(member, each));
    };
    if (parameter.optional || !is_list(parameter)) return !parameter.optional;
    return std::ranges::count_if(member.parameters(), [&](const core::Parameter& each) {
               return !each.optional && is_list(each);
           }) == 1;
}

bool is_shown_with_option(const core::Member& member, const core::Parameter& parameter) {
    return core::parameter_role(member, parameter) == core::ParameterRole::password ||
           !may_stand_in_order(member, parameter);
}

bool is_made_by_the_command(const core::Parameter& parameter) {
    return parameter.type == core::ValueType::object;
}

}  // namespace foliant::cli
