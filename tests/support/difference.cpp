#include "support/difference.h"

#include <algorithm>
#include <gtest/gtest.h>

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

Lines changes(const Lines& expected, const Lines& actual) {
    Lines shown = difference(expected, actual);
    std::erase_if(shown, [](const std::string& line) { return line.starts_with("  "); });
    return shown;
}

void expect_lines(const Lines& actual, const Lines& expected, std::source_location place) {
    if (expected == actual) return;
    ADD_FAILURE_AT(place.file_name(), static_cast<int>(place.line()))
        << "What was expected (-) and what happened (+):\n"
        << text_of(difference(expected, actual));
}

void expect_text(const Lines& actual, std::string_view expected, std::source_location place) {
    expect_lines(actual, lines_of(expected), place);
}

}  // namespace foliant::tests
