#include "platform/name_pattern.h"

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <utility>

#include "automation/text.h"

namespace foliant::platform {
namespace {

std::vector<std::string> characters_of(std::string_view text) {
    std::vector<std::string> characters;
    for (const char byte : text) {
        const bool continues = (static_cast<std::uint8_t>(byte) & 0xC0U) == 0x80U;
        if (continues && !characters.empty())
            characters.back() += byte;
        else
            characters.emplace_back(1, byte);
    }
    return characters;
}

/// Directories compare capitals: "_" comes after the letters of ASCII.
std::string capitals(std::string_view name) {
    std::string folded = automation::to_lower(name);
    for (char& c : folded)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return folded;
}

}  // namespace

NamePattern::NamePattern(std::string_view pattern) {
    if (pattern.empty() || pattern == "*.*") pattern = "*";
    const std::string_view shown = pattern.substr(0, pattern.find_last_not_of(". ") + 1);
    const bool ends_in_dot = shown.size() < pattern.size() && pattern[shown.size()] == '.';
    const std::vector<std::string> characters = characters_of(automation::to_lower(shown));
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const bool last = i + 1 == characters.size();
        const bool before_wildcard = !last && (characters[i + 1] == "*" || characters[i + 1] == "?");
        if (characters[i] == "?")
            tokens_.push_back({Kind::one_or_none});
        else if (characters[i] == "*")
            tokens_.push_back({last && ends_in_dot ? Kind::any_but_last_dot : Kind::any});
        else if (characters[i] == "." && before_wildcard)
            tokens_.push_back({Kind::dot_or_end});
        else
            tokens_.push_back({Kind::character, characters[i]});
    }
}

bool NamePattern::Token::may_be_empty_before(std::string_view next) const {
    switch (kind) {
        case Kind::character:
            return false;
        case Kind::one_or_none:
            return next.empty() || next == ".";
        case Kind::dot_or_end:
            return next.empty();
        case Kind::any:
        case Kind::any_but_last_dot:
            break;
    }
    return true;
}

bool NamePattern::Token::takes(std::string_view next, bool is_last_dot) const {
    switch (kind) {
        case Kind::character:
            return next == character;
        case Kind::one_or_none:
            return next != ".";
        case Kind::dot_or_end:
            return next == ".";
        case Kind::any:
            return true;
        case Kind::any_but_last_dot:
            break;
    }
    return !is_last_dot;
}

bool NamePattern::matches(std::string_view name) const {
    const std::vector<std::string> characters = characters_of(automation::to_lower(name));
    const auto last_dot = std::find(characters.rbegin(), characters.rend(), ".");
    // All tokens that could come next are followed at once, so that no pattern takes long.
    std::vector<bool> reached(tokens_.size() + 1);
    reached[0] = true;
    const auto pass_over_before = [&](std::string_view next) {
        for (std::size_t i = 0; i < tokens_.size(); ++i)
            if (reached[i] && tokens_[i].may_be_empty_before(next)) reached[i + 1] = true;
    };
    for (const std::string& character : characters) {
        pass_over_before(character);
        const bool is_last_dot = last_dot != characters.rend() && &character == &*last_dot;
        std::vector<bool> after(reached.size());
        for (std::size_t i = 0; i < tokens_.size(); ++i)
            if (reached[i] && tokens_[i].takes(character, is_last_dot))
                after[tokens_[i].repeats() ? i : i + 1] = true;
        reached = std::move(after);
    }
    pass_over_before("");
    return reached.back();
}

bool comes_before(std::string_view a, std::string_view b) {
    return std::forward_as_tuple(capitals(a), a) < std::forward_as_tuple(capitals(b), b);
}

}  // namespace foliant::platform
