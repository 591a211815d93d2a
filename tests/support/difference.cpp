#include "support/difference.h"

#include <algorithm>

namespace foliant::tests {
namespace {

/// `longest[i][j]` is how many lines the rests from i and from j can have in common, in order.
std::vector<std::vector<std::size_t>> common_rests(const Lines& expected, const Lines& actual) {
    std::vector<std::vector<std::size_t>> longest(expected.size() + 1,
                                                  std::vector<std::size_t>(actual.size() + 1));
    for (std::size_t i = expected.size(); i-- > 0;) {
        for (std::size_t j = actual.size(); j-- > 0;) {
            longest[i][j] = expected[i] == actual[j] ? longest[i + 1][j + 1] + 1
                                                     : std::max(longest[i + 1][j], longest[i][j + 1]);
        }
    }
    return longest;
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

Lines difference(const Lines& expected, const Lines& actual) {
    const auto longest = common_rests(expected, actual);
    Lines shown;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < expected.size() || j < actual.size()) {
        const bool both_left = i < expected.size() && j < actual.size();
        if (both_left && expected[i] == actual[j]) {
            shown.push_back("  " + actual[j++]);
            ++i;
        } else if (j == actual.size() || (both_left && longest[i + 1][j] >= longest[i][j + 1])) {
            shown.push_back("- " + expected[i++]);
        } else {
            shown.push_back("+ " + actual[j++]);
        }
    }
    return shown;
}

std::string text_of(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

}  // namespace foliant::tests
