#include "hosts/distiller/driver_file.h"

#include <array>

namespace foliant::hosts::distiller {
namespace {

constexpr std::array<std::string_view, 7> prologue = {
    "/prun { /mysave save def", "dup = flush", "RunFile", "clear cleardictstack",
    "mysave restore",           "} def",       "",
};

/// Takes one ended line off the front of `text`; none when no line end is left.
std::optional<std::string_view> take_line(std::string_view& text) {
    const auto end = text.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// True when PostScript reads `text` between parentheses as exactly these bytes.
bool is_plain_string(std::string_view text) {
    int depth = 0;
    for (const char c : text) {
        if (c == '\\' || c == '\r' || c == '\0') return false;
        if (c == '(') ++depth;
        if (c == ')' && --depth < 0) return false;
    }
    return depth == 0;
}

std::optional<std::string> path_of_run_line(std::string_view line) {
    constexpr std::string_view before_name = "(";
    constexpr std::string_view after_name = ") prun";
    if (line.size() <= before_name.size() + after_name.size()) return std::nullopt;
    if (!line.starts_with(before_name) || !line.ends_with(after_name)) return std::nullopt;
    line.remove_prefix(before_name.size());
    line.remove_suffix(after_name.size());
    if (!is_plain_string(line)) return std::nullopt;
    return std::string(line);
}

}  // namespace

bool may_be_driver(std::string_view head) {
    return head.starts_with(prologue.front());
}

std::optional<std::vector<std::string>> files_of_driver(std::string_view text) {
    for (const std::string_view expected : prologue) {
        if (take_line(text) != expected) return std::nullopt;
    }
    std::vector<std::string> paths;
    while (!text.empty()) {
        const auto line = take_line(text);
        auto path = line ? path_of_run_line(*line) : std::nullopt;
        if (!path) return std::nullopt;
        paths.push_back(std::move(*path));
    }
    return paths;
}

}  // namespace foliant::hosts::distiller
