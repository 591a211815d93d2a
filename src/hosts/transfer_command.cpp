#include "hosts/transfer_command.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "automation/text.h"

namespace foliant::hosts {

namespace {

namespace fs = std::filesystem;

using Names = std::pair<std::string, std::string>;  // as they stand in the command

std::string unquoted(std::string_view name) {
    const bool quoted = name.size() >= 2 && name.front() == '"' && name.back() == '"';
    return std::string(quoted ? name.substr(1, name.size() - 2) : name);
}

/// Every way to take the text for two names with a blank in between.
std::vector<Names> readings(std::string_view names) {
    std::vector<Names> found;
    for (std::size_t blank = names.find(' '); blank != std::string_view::npos;
         blank = names.find(' ', blank + 1)) {
        const std::string_view first = automation::trim_blanks(names.substr(0, blank));
        const std::string_view second = automation::trim_blanks(names.substr(blank + 1));
        const bool is_cut = first.starts_with('"') != first.ends_with('"') ||
                            second.starts_with('"') != second.ends_with('"');
        if (!first.empty() && !second.empty() && !is_cut)
            found.emplace_back(unquoted(first), unquoted(second));
    }
    return found;
}

bool is_file(const std::string& path) {
    std::error_code none;
    return fs::exists(path, none) && !fs::is_directory(path, none);
}

bool has_folder(const std::string& path) {
    std::error_code none;
    const fs::path folder = fs::path(path).parent_path();
    return folder.empty() || fs::is_directory(folder, none);
}

TransferCommand put_command(const std::vector<Names>& readings) {
    // From the back: of two files that exist, the one with the longer name leaves the remote one whole.
    const auto found = std::find_if(readings.rbegin(), readings.rend(),
                                    [](const Names& names) { return is_file(names.first); });
    const Names& names = found == readings.rend() ? readings.front() : *found;
    return {TransferCommand::Verb::put, names.first, names.second};
}

TransferCommand get_command(const std::vector<Names>& readings) {
    // A name without a folder can always be made: a longer one with a folder that is there says more.
    const auto names_folder = [](const Names& names) {
        return fs::path(names.second).is_absolute() && has_folder(names.second);
    };
    auto found = std::find_if(readings.begin(), readings.end(), names_folder);
    if (found == readings.end()) {
        found = std::find_if(readings.begin(), readings.end(), [](const Names& names) {
            return names.second.find('/') != std::string::npos && has_folder(names.second);
        });
    }
    const Names& names = found == readings.end() ? readings.back() : *found;
    return {TransferCommand::Verb::get, names.second, names.first};
}

}  // namespace

std::optional<TransferCommand> transfer_command(std::string_view command) {
    const std::string verb = automation::to_lower(command.substr(0, command.find(' ')));
    if (verb != "put" && verb != "get") return std::nullopt;
    const std::vector<Names> ways = readings(automation::trim_blanks(command.substr(verb.size())));
    if (ways.empty()) return std::nullopt;
    return verb == "put" ? put_command(ways) : get_command(ways);
}

}  // namespace foliant::hosts
