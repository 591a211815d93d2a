#include "support/lines.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace foliant::tests {
namespace {

auto containing(std::string_view text) {
    return [text](const std::string& line) { return line.find(text) != std::string::npos; };
}

void fail_at(const std::source_location& place, const std::string& what, const Lines& lines) {
    ADD_FAILURE_AT(place.file_name(), static_cast<int>(place.line())) << what << ":\n" << text_of(lines);
}

}  // namespace

Lines lines_of(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        lines.emplace_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    lines.erase(lines.begin(), std::find_if(lines.begin(), lines.end(),
                                            [](const std::string& line) { return !line.empty(); }));
    return lines;
}

std::string text_of(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

Lines lines_from(const Lines& lines, std::string_view text, std::source_location place) {
    const auto first = std::find_if(lines.begin(), lines.end(), containing(text));
    if (first == lines.end()) fail_at(place, "no line has \"" + std::string(text) + "\"", lines);
    return {first, lines.end()};
}

Lines lines_between(const Lines& lines, std::string_view first, std::string_view last,
                    std::source_location place) {
    const Lines rest = lines_from(lines, first, place);
    if (rest.empty()) return rest;
    const auto end = std::find_if(rest.begin() + 1, rest.end(), containing(last));
    if (end == rest.end()) {
        fail_at(place, "no line after that has \"" + std::string(last) + "\"", rest);
        return rest;
    }
    return {rest.begin(), end + 1};
}

Lines lines_with(const Lines& lines, const std::vector<std::string_view>& texts, std::source_location place) {
    Lines found;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(found), [&](const std::string& line) {
        return std::any_of(texts.begin(), texts.end(),
                           [&](std::string_view text) { return containing(text)(line); });
    });
    if (found.empty()) fail_at(place, "no line has any of the texts", lines);
    return found;
}

std::string line_with(const Lines& lines, std::string_view text, std::source_location place) {
    const Lines found = lines_with(lines, {text}, place);
    if (found.size() > 1) fail_at(place, "several lines have \"" + std::string(text) + "\"", found);
    return found.size() == 1 ? found.front() : "";
}

}  // namespace foliant::tests
