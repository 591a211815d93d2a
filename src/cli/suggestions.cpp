#include "cli/suggestions.h"

#include <algorithm>
#include <numeric>

#include "automation/text.h"

namespace foliant::cli {
namespace {

/// How many letters have to be changed, put in, left out or swapped with their neighbour.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before;
    std::vector<std::size_t> last(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::vector<std::size_t> now(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t change = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            now[j] = std::min({change, last[j] + 1, now[j - 1] + 1});
            const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (swapped) now[j] = std::min(now[j], before[j - 2] + 1);
        }
        before = std::exchange(last, std::move(now));
    }
    return last.back();
}

std::string question(const std::string& word, const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : nearest(word, names))
        text += (text.empty() ? " Did you mean " : " or ") + name;
    return text.empty() ? text : text + "?";
}

/// The command that the words have led to.
const CLI::App& innermost(const CLI::App& app) {
    const CLI::App* inner = &app;
    while (!inner->get_subcommands().empty())
        inner = inner->get_subcommands().front();
    return *inner;
}

std::string without_value(const std::string& word) {
    return word.substr(0, word.find('='));
}

const CLI::Option* find_option(const CLI::App& app, const std::string& name) {
    for (const CLI::App* level = &app; level != nullptr; level = level->get_parent()) {
        if (const CLI::Option* option = level->get_option_no_throw(name)) return option;
    }
    return nullptr;
}

std::vector<std::string> option_names(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* level = &app; level != nullptr; level = level->get_parent()) {
        for (const CLI::Option* option : level->get_options()) {
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
        }
    }
    return names;
}

std::vector<std::string> command_names(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    return names;
}

bool is_number(const std::string& word) {
    return word.find_first_not_of("-+.0123456789") == std::string::npos;
}

std::string option_diagnosis(const CLI::App& command, const std::string& word) {
    if (word.starts_with("--")) {
        const std::string name = without_value(word);
        return "there is no option " + name + "." + question(name, option_names(command));
    }
    return "'" + word + "' is taken for an option. A name that begins with a dash is written ./" + word +
           ", or stands behind --.";
}

}  // namespace

std::vector<std::string> nearest(std::string_view word, const std::vector<std::string>& names) {
    constexpr std::size_t most = 3;
    const std::string lower = automation::to_lower(word);
    const std::size_t bearable = std::max<std::size_t>(2, lower.size() / 4);
    std::vector<std::pair<std::size_t, std::string>> found;
    for (const std::string& name : names) {
        const std::string candidate = automation::to_lower(name);
        const bool begins = lower.size() > 3 && candidate.starts_with(lower);
        const std::size_t far = begins ? 1 : distance(lower, candidate);
        if (far <= bearable && far < candidate.size()) found.emplace_back(far, name);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> result;
    for (const auto& [far, name] : found) {
        const bool much_worse = far > found.front().first + 1;
        if (result.size() < most && !much_worse) result.push_back(name);
    }
    return result;
}

std::string diagnosis(const CLI::App& app, const std::vector<std::string>& words) {
    const CLI::App& command = innermost(app);
    const auto commands = command_names(command);
    bool is_value = false;
    bool reached = &command == &app;
    for (const std::string& word : words) {
        if (word == "--") break;
        if (std::exchange(is_value, false)) continue;
        if (word.size() > 1 && word.front() == '-' && !is_number(word)) {
            const CLI::Option* option = find_option(command, without_value(word));
            if (option == nullptr) return option_diagnosis(command, word);
            is_value = option->get_items_expected_max() > 0 && word.find('=') == std::string::npos;
        } else if (reached && !commands.empty()) {
            return (command.get_parent() == nullptr ? "there is no member or tool '"
                                                    : "foliant " + command.get_name() + " has no '") +
                   word + "'." + question(word, commands);
        } else {
            reached = reached || automation::equal_ignoring_case(word, command.get_name());
        }
    }
    return {};
}

}  // namespace foliant::cli
