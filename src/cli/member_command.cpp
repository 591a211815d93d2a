#include "cli/member_command.h"

#include <algorithm>

#include "automation/coerce.h"
#include "automation/text.h"
#include "cli/option_names.h"
#include "core/parameter_help.h"

namespace foliant::cli {

using automation::Value;
using core::Parameter;
using core::ParameterRole;
using core::ValueType;

namespace {

/// Names that stand for the numbers of the two enumerations.
const std::map<std::string, std::int32_t>& enumeration_names(ValueType type) {
    static const std::map<std::string, std::int32_t> alignments{
        {"left", 0},         {"center", 1},         {"centre", 1},        {"right", 2},
        {"qrxalignleft", 0}, {"qrxaligncenter", 1}, {"qrxalignright", 2},
    };
    static const std::map<std::string, std::int32_t> readings{
        {"none", 0},
        {"page", 1},
        {"document", 2},
        {"qrxreadnone", 0},
        {"qrxreadcurrentpage", 1},
        {"qrxreaddocument", 2},
    };
    return type == ValueType::align_type ? alignments : readings;
}

bool to_flag(const std::string& text) {
    const std::string word = automation::to_lower(text);
    if (word == "yes" || word == "on") return true;
    if (word == "no" || word == "off") return false;
    return automation::to_bool(text);
}

/// The text as a value of the parameter's type; raises an automation error when it has none.
Value typed(ValueType type, const std::string& text) {
    switch (type) {
        case ValueType::boolean:
            return to_flag(text);
        case ValueType::integer:
            return automation::to_int16(text);
        case ValueType::long_number:
            return automation::to_int32(text);
        case ValueType::single:
            return automation::to_single(text);
        case ValueType::double_number:
            return automation::to_double(text);
        case ValueType::align_type:
        case ValueType::read_type: {
            const auto& names = enumeration_names(type);
            const auto name = names.find(automation::to_lower(text));
            return name != names.end() ? name->second : automation::to_int32(text);
        }
        default:
            return text;
    }
}

std::string what_it_takes(ValueType type) {
    switch (type) {
        case ValueType::boolean:
            return "true or false";
        case ValueType::integer:
            return "a whole number from -32768 to 32767";
        case ValueType::long_number:
            return "a whole number";
        case ValueType::align_type:
            return "left, center, right or a number";
        case ValueType::read_type:
            return "none, page, document or a number";
        default:
            return "a number";
    }
}

CLI::Validator type_check(ValueType type) {
    return CLI::Validator(
        [type](std::string& text) {
            try {
                typed(type, text);
                return std::string();
            } catch (const automation::Error&) {
                return "'" + text + "' is not " + what_it_takes(type);
            }
        },
        "");
}

std::string help_text(const core::Member& member, const Parameter& parameter) {
    std::string text(core::parameter_help(member, parameter));
    if (const auto* number = std::get_if<std::int32_t>(&parameter.default_value)) {
        const bool alignment = parameter.type == ValueType::align_type;
        text += " [" + (alignment ? std::string(*number == 0 ? "left" : "center") : std::to_string(*number)) +
                "]";
    } else if (const auto* word = std::get_if<std::string_view>(&parameter.default_value)) {
        text += " [" + std::string(*word) + "]";
    }
    return text;
}

bool is_list(const core::Member& member, const Parameter& parameter) {
    return core::is_list(core::parameter_role(member, parameter));
}

/// A password that a member asks for is one that the PDF gets; those that open something may be left out.
bool is_new_password(const Parameter& parameter, ParameterRole role) {
    return role == ParameterRole::password && !parameter.optional;
}

/// No member could open the file again: to all of them, blanks alone are no password.
void require_new_password(const std::string& name, const std::string& password) {
    constexpr std::size_t longest = 127;  // bytes, of AES with 256 bits
    if (automation::trim_blanks(password).empty())
        throw CLI::ValidationError(
            "--" + name, "the new password is empty or blank, which protects nothing. Nothing was done");
    if (password.size() > longest)
        throw CLI::ValidationError("--" + name, "the new password has " + std::to_string(password.size()) +
                                                    " bytes in UTF-8; a PDF takes at most " +
                                                    std::to_string(longest) + ". Nothing was done");
}

/// Of what type a word of the command line has to be.
ValueType element_type(const Parameter& parameter, ParameterRole role) {
    return role == ParameterRole::parallel_flags ? ValueType::boolean : parameter.type;
}

}  // namespace

MemberCommand::MemberCommand(CLI::App& command, const core::Member& member) : member_(member) {
    for (const Parameter& parameter : member.parameters()) {
        if (!is_made_by_the_command(parameter)) add_parameter(command, parameter);
    }
}

void MemberCommand::add_parameter(CLI::App& command, const Parameter& parameter) {
    auto& given = *given_.emplace(parameter.name, std::make_unique<Given>()).first->second;
    const std::string names = "--" + option_name(parameter.name) + ",--" + std::string(parameter.name);
    const std::string help = help_text(member_, parameter);
    const bool list = is_list(member_, parameter);
    if (parameter.type == ValueType::boolean) {
        given.option = command.add_flag(names, given.texts, help);
    } else {
        const bool positional = may_stand_in_order(member_, parameter);
        given.option = command.add_option((positional ? option_name(parameter.name) + "," : "") + names,
                                          given.texts, help);
        given.option->type_name(placeholder(parameter.name));
        given.option->allow_extra_args(list)->expected(1, list ? 1 << 20 : 1);
        given.option->multi_option_policy(list ? CLI::MultiOptionPolicy::TakeAll
                                               : CLI::MultiOptionPolicy::Throw);
    }
    const ParameterRole role = core::parameter_role(member_, parameter);
    if (const ValueType type = element_type(parameter, role);
        type != ValueType::string && type != ValueType::variant) {
        given.option->check(type_check(type));
    }
    if (role == ParameterRole::password) {
        add_password_sources(command, parameter, given);
    } else if (!parameter.optional) {
        given.option->required();
    }
}

void MemberCommand::add_password_sources(CLI::App& command, const Parameter& parameter, Given& given) {
    const std::string name = option_name(parameter.name);
    auto* file = command.add_option("--" + name + "-file", given.password_file,
                                    "read that password from the first line of a file, - for standard input");
    auto* ask = command.add_flag("--" + name + "-ask", given.ask, "ask for that password on the terminal");
    file->type_name("FILE")->excludes(given.option)->excludes(ask);
    ask->excludes(given.option);
}

bool MemberCommand::is_given(const Given& given) const {
    return !given.texts.empty() || !given.password_file.empty() || given.ask;
}

Value MemberCommand::value_of(const Parameter& parameter, const Given& given) const {
    if (!is_list(member_, parameter)) return typed(parameter.type, given.texts.back());
    const ValueType type = element_type(parameter, core::parameter_role(member_, parameter));
    automation::Array array;
    for (const std::string& text : given.texts)
        array.items.push_back(typed(type, text));
    return array;
}

/// The member would find out when Excel and the workbook are open, and say "Type mismatch" or "Subscript out
/// of range".
void MemberCommand::check_parallel_lists() const {
    std::string first;
    std::size_t length = 0;
    for (const Parameter& parameter : member_.parameters()) {
        const ParameterRole role = core::parameter_role(member_, parameter);
        if (!core::is_list(role)) continue;
        const std::size_t count = given_.at(parameter.name)->texts.size();
        if (!core::is_parallel_list(role)) {
            first = option_name(parameter.name);
            length = count;
            continue;
        }
        const bool can_be_left_out = parameter.optional && role != ParameterRole::parallel_flags;
        if (count == length || (count == 0 && can_be_left_out)) continue;
        throw CLI::ValidationError("--" + option_name(parameter.name),
                                   "needs a value for each of --" + first + ": " + std::to_string(length) +
                                       ", and " + std::to_string(count) + " given");
    }
}

automation::Arguments MemberCommand::arguments(const AskPassword& ask_password,
                                               const Deadline& deadline) const {
    check_parallel_lists();
    automation::Arguments arguments;
    for (const Parameter& parameter : member_.parameters()) {
        if (is_made_by_the_command(parameter)) continue;
        const Given& given = *given_.at(parameter.name);
        if (!is_given(given)) {
            if (parameter.optional) continue;
            throw CLI::RequiredError(placeholder(parameter.name));
        }
        Value value;
        if (!given.password_file.empty()) {
            value = read_secret_file(given.password_file, deadline);
        } else if (given.ask) {
            value = ask_password(option_name(parameter.name) + ": ", deadline);
        } else {
            value = value_of(parameter, given);
        }
        if (is_new_password(parameter, core::parameter_role(member_, parameter)))
            require_new_password(option_name(parameter.name), automation::to_text(value));
        arguments.push_back(automation::named(parameter.name, std::move(value)));
    }
    return arguments;
}

}  // namespace foliant::cli
