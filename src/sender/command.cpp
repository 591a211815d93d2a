#include "sender/command.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "sender/ascii.h"

namespace foliant::sender {
namespace {

using Fault = CommandError::Fault;

constexpr char separator = '~';
constexpr std::size_t field_count = 5;
constexpr std::string_view tick_token = "{LM}";
constexpr std::string_view dismiss_token = "{LME}";
constexpr std::string_view after_one_suffix = "^1";
constexpr std::string_view settings_dialog = "password security - settings";
constexpr std::string_view sender_program = "quorixsend";

constexpr std::array<std::pair<std::string_view, ControlClass>, 3> control_classes{{
    {"Edit", ControlClass::edit},
    {"Button", ControlClass::button},
    {"RichEdit20W", ControlClass::rich_edit},
}};

constexpr bool is_white(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string_view without_leading_blanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view trimmed(std::string_view tail) {
    tail = without_leading_blanks(tail);
    while (!tail.empty() && is_white(tail.back()))
        tail.remove_suffix(1);
    return tail;
}

/// Takes the first field, and the "~" behind it, off `rest`, which holds one.
std::string_view take_first(std::string_view& rest) {
    const std::size_t end = rest.find(separator);
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return field;
}

/// Takes the last field, and the "~" behind it, off `rest`, which ends with one.
std::string_view take_last(std::string_view& rest) {
    rest.remove_suffix(1);
    const std::size_t before = rest.rfind(separator);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::string_view field = rest.substr(begin);
    rest = rest.substr(0, begin);
    return field;
}

ControlClass read_class(std::string_view field) {
    for (const auto& [name, control] : control_classes)
        if (same_text(name, field)) return control;
    throw CommandError(Fault::unknown_class, "\"" + std::string(field) +
                                                 "\" is no control class that can be acted on; "
                                                 "these can: Edit, RichEdit20W, Button.");
}

bool read_flag(std::string_view field, char name) {
    if (field == "0") return false;
    if (field == "1" && name == 'B') return true;
    throw CommandError(Fault::bad_flag, name == 'A' ? "flag A must be 0." : "flag B must be 0 or 1.");
}

void check_action(const Command& command) {
    if (command.control != ControlClass::button) return;
    if (command.text.empty() || command.text == tick_token || command.text == dismiss_token) return;
    throw CommandError(Fault::unknown_action,
                       "a Button takes no text but {LM} or {LME}, or none for the default button.");
}

void check_shape(std::string_view tail) {
    if (tail.empty()) throw CommandError(Fault::empty, "it is empty.");
    if (tail.back() != separator)
        throw CommandError(Fault::not_terminated, "it does not end with \"~\" and may have been cut short.");
    const auto fields = static_cast<std::size_t>(std::count(tail.begin(), tail.end(), separator));
    if (fields < field_count)
        throw CommandError(Fault::too_few_fields, "it has " + std::to_string(fields) +
                                                      (fields == 1 ? " field" : " fields") +
                                                      " where five are needed.");
}

/// Where the program's name, found as a whole file name at or after `from`, ends: at a blank or at the end
/// of the line. Nothing when it does not occur.
std::optional<std::size_t> end_of_program(const std::string& lower_line, std::size_t from) {
    for (std::size_t at = lower_line.find(sender_program, from); at != std::string::npos;
         at = lower_line.find(sender_program, at + 1)) {
        if (at > 0 && lower_line[at - 1] != '\\' && lower_line[at - 1] != '/') continue;
        std::size_t end = at + sender_program.size();
        if (lower_line.compare(end, 4, ".exe") == 0) end += 4;
        if (end == lower_line.size() || lower_line[end] == ' ') return end;
    }
    return std::nullopt;
}

std::size_t end_of_unquoted_path(std::string_view line) {
    const std::string lower = lower_case(line);
    std::optional<std::size_t> end = end_of_program(lower, 0);
    if (!end) return std::min(line.find(' '), line.size());
    while (const auto next = end_of_program(lower, *end)) {
        if (lower.find(separator, *end) < *next) break;
        end = next;
    }
    return *end;
}

}  // namespace

std::string_view class_name(ControlClass control) {
    const auto* row = std::find_if(control_classes.begin(), control_classes.end(),
                                   [&](const auto& candidate) { return candidate.second == control; });
    return row->first;
}

CommandError::CommandError(Fault fault, const std::string& problem)
    : std::runtime_error("quorixsend cannot read its command: " + problem +
                         "\nA command has five fields, each followed by \"~\": caption~class~text~0~B~"
                         "\nFor example: open~Edit~C:\\Docs\\report.pdf~0~0~"),
      fault_(fault) {}

Action Command::action() const {
    if (control == ControlClass::button) {
        if (text == tick_token) return Action::tick_option;
        return text == dismiss_token ? Action::dismiss_notice : Action::press_default;
    }
    const bool after_one = same_text(caption, settings_dialog) && text.ends_with(after_one_suffix);
    return after_one ? Action::enter_option_text : Action::enter_text;
}

std::string Command::entry() const {
    if (control == ControlClass::button) return {};
    if (action() != Action::enter_option_text) return text;
    return text.substr(0, text.size() - after_one_suffix.size());
}

Command parse(std::string_view tail) {
    std::string_view rest = trimmed(tail);
    check_shape(rest);
    const std::string_view caption = take_first(rest);
    const std::string_view control = take_first(rest);
    const std::string_view flag_b = take_last(rest);
    const std::string_view flag_a = take_last(rest);
    rest.remove_suffix(1);

    if (caption.empty()) throw CommandError(Fault::no_caption, "the caption of the dialog is empty.");
    Command command;
    command.caption = caption;
    command.control = read_class(control);
    command.text = rest;
    read_flag(flag_a, 'A');
    command.stay_until_closed = read_flag(flag_b, 'B');
    check_action(command);
    return command;
}

std::string_view command_tail(std::string_view command_line) {
    std::string_view line = without_leading_blanks(command_line);
    const bool quoted = line.starts_with('"');
    if (quoted) line.remove_prefix(1);
    const std::size_t end = quoted ? line.find('"') : end_of_unquoted_path(line);
    if (end == std::string_view::npos) return {};
    line.remove_prefix(end + (quoted ? 1 : 0));
    if (line.starts_with(' ')) line.remove_prefix(1);
    return line;
}

}  // namespace foliant::sender
