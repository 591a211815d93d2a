#include "hosts/transfer_command.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "automation/text.h"

namespace foliant::hosts {

namespace {

namespace fs = std::filesystem;

/// As they stand in the command.
struct Names {
    std::string first;
    std::string second;

    bool operator==(const Names&) const = default;
};

/// Takes a name in quotation marks off the front, if there is one.
std::optional<std::string> take_quoted(std::string_view& text) {
    if (!text.starts_with('"')) return std::nullopt;
    std::string name;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"' && text.substr(i + 1, 1) != "\"") {
            text.remove_prefix(i + 1);
            return name;
        }
        if (text[i] == '"') ++i;
        name.push_back(text[i]);
    }
    return std::nullopt;
}

std::optional<Names> quoted_names(std::string_view text) {
    auto first = take_quoted(text);
    if (!first || first->empty() || !text.starts_with(' ')) return std::nullopt;
    text = automation::trim_blanks(text);
    auto second = take_quoted(text);
    if (!second || second->empty() || !text.empty()) return std::nullopt;
    return Names{std::move(*first), std::move(*second)};
}

std::string unquoted(std::string_view name) {
    const bool quoted = name.size() >= 2 && name.front() == '"' && name.back() == '"';
    return std::string(quoted ? name.substr(1, name.size() - 2) : name);
}

/// Every way to take the text for two names with a blank in between.
std::vector<Names> names_in(std::string_view names) {
    if (auto quoted = quoted_names(names)) return {std::move(*quoted)};
    std::vector<Names> found;
    for (std::size_t blank = names.find(' '); blank != std::string_view::npos;
         blank = names.find(' ', blank + 1)) {
        const std::string_view first = automation::trim_blanks(names.substr(0, blank));
        const std::string_view second = automation::trim_blanks(names.substr(blank + 1));
        const bool is_cut = first.starts_with('"') != first.ends_with('"') ||
                            second.starts_with('"') != second.ends_with('"');
        Names pair{unquoted(first), unquoted(second)};
        if (is_cut || pair.first.empty() || pair.second.empty()) continue;
        if (found.empty() || found.back() != pair) found.push_back(std::move(pair));
    }
    return found;
}

bool is_file(const TransferCommand& command) {
    std::error_code none;
    const fs::path path = command.local_file;
    return fs::exists(path, none) && !fs::is_directory(path, none);
}

bool has_folder(const TransferCommand& command) {
    std::error_code none;
    const fs::path path = command.local_file;
    return path.has_parent_path() && fs::is_directory(path.parent_path(), none);
}

/// A name without a folder can always be made: one with a folder that is there says more.
bool has_absolute_folder(const TransferCommand& command) {
    return fs::path(command.local_file).is_absolute() && has_folder(command);
}

/// Whether there are any that hold; the others are gone then.
bool keep_those(std::vector<TransferCommand>& commands, bool (*hold)(const TransferCommand&)) {
    if (std::none_of(commands.begin(), commands.end(), hold)) return false;
    std::erase_if(commands, [hold](const TransferCommand& command) { return !hold(command); });
    return true;
}

std::string text_of(TransferCommand::Verb verb, const std::string& local, const std::string& remote) {
    return verb == TransferCommand::Verb::put ? "PUT " + local + " " + remote : "GET " + remote + " " + local;
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char letter : name)
        text.append(letter == '"' ? 2 : 1, letter);
    return text + "\"";
}

}  // namespace

std::vector<TransferCommand> transfer_readings(std::string_view command) {
    const std::string verb = automation::to_lower(command.substr(0, command.find(' ')));
    const bool puts = verb == "put";
    if (!puts && verb != "get") return {};
    std::vector<TransferCommand> readings;
    for (Names& names : names_in(automation::trim_blanks(command.substr(verb.size())))) {
        if (!puts) names.first.swap(names.second);
        readings.push_back({puts ? TransferCommand::Verb::put : TransferCommand::Verb::get,
                            std::move(names.first), std::move(names.second)});
    }
    if (puts) {
        keep_those(readings, is_file);
    } else if (!keep_those(readings, has_absolute_folder)) {
        keep_those(readings, has_folder);
    }
    return readings;
}

std::string unquoted_text(const TransferCommand& command) {
    return text_of(command.verb, command.local_file, command.remote_file);
}

std::string unmistakable_text(const TransferCommand& command) {
    const bool is_plain =
        (command.local_file + command.remote_file).find_first_of(" \"") == std::string::npos;
    if (is_plain) return unquoted_text(command);
    return text_of(command.verb, quoted(command.local_file), quoted(command.remote_file));
}

}  // namespace foliant::hosts
