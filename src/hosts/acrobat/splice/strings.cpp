#include "hosts/acrobat/splice/strings.h"

#include <algorithm>

namespace foliant::hosts::acrobat::splice {

using glance::Kind;
using glance::require;

namespace {

/// What a backslash and the characters behind it stand for; `at` is behind the backslash.
std::string escaped(std::string_view text, std::size_t& at) {
    constexpr std::string_view letters = "nrtbf";
    constexpr std::string_view meanings = "\n\r\t\b\f";
    const char c = text[at++];
    if (const std::size_t letter = letters.find(c); letter != std::string_view::npos)
        return {meanings[letter]};
    if (c >= '0' && c <= '7') {
        unsigned number = static_cast<unsigned>(c - '0');
        for (int digits = 1; digits < 3 && text[at] >= '0' && text[at] <= '7'; ++digits)
            number = number * 8 + static_cast<unsigned>(text[at++] - '0');
        return {static_cast<char>(number)};
    }
    require(c != '\r' && c != '\n');  // a line that goes on is rare
    return {c};
}

/// Without what a string between parentheses would have to have a backslash for.
bool is_plain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != '(' && c != ')' && c != '\\'; });
}

}  // namespace

bool is_string(const glance::Value& value) {
    return value.kind == Kind::other && (value.text.front() == '(' || value.text.front() == '<');
}

std::string string_bytes(std::string_view text) {
    require(text.size() >= 2 && (text.front() == '(' || text.front() == '<'));
    std::string bytes;
    if (text.front() == '(') {
        for (std::size_t at = 1; at + 1 < text.size();) {
            const char c = text[at++];
            require(c != '\r');
            bytes += c == '\\' ? escaped(text, at) : std::string(1, c);
        }
        return bytes;
    }
    std::string digits;
    for (const char c : text.substr(1, text.size() - 2))
        if (c > ' ') digits += c;
    if (digits.size() % 2 != 0) digits += '0';
    for (std::size_t at = 0; at < digits.size(); at += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
    return bytes;
}

std::string string_text(std::string_view bytes) {
    if (is_plain(bytes)) return "(" + std::string(bytes) + ")";
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "<";
    for (const char c : bytes) {
        text += digits[static_cast<unsigned char>(c) >> 4U];
        text += digits[static_cast<unsigned char>(c) & 0xFU];
    }
    return text + ">";
}

}  // namespace foliant::hosts::acrobat::splice
