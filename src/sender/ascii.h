#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace foliant::sender {

/// The lower-case form of an ASCII letter; every other byte as it is, so UTF-8 text stays intact and
/// no locale has a say. The captions, classes and names that the sender compares are ASCII.
constexpr char to_lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether two texts are the same when the case of ASCII letters is ignored.
constexpr bool same_text(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return to_lower(x) == to_lower(y); });
}

/// `text` with its ASCII letters in lower case.
inline std::string lower_case(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), to_lower);
    return lower;
}

}  // namespace foliant::sender
