#include "hosts/acrobat/text/search.h"

#include <algorithm>

#include "hosts/acrobat/text/letters.h"

namespace foliant::hosts::acrobat::text {
namespace {

bool is_optional(char32_t letter) {
    return letter == optional_hyphen || letter == optional_blank;
}

/// Whether the text has `sought` there, an optional sign counting as what it stands for.
bool stands_for(char32_t letter, char32_t sought) {
    return letter == sought || (letter == optional_hyphen && sought == U'-') ||
           (letter == optional_blank && sought == U' ');
}

/// Where `sought`, which begins at `start`, ends; nothing when it does not stand there.
std::optional<std::size_t> end_of(std::u32string_view text, std::u32string_view sought, std::size_t start) {
    std::size_t at = start;
    for (const char32_t wanted : sought) {
        while (at < text.size() && !stands_for(text[at], wanted) && is_optional(text[at]) && at > start)
            ++at;
        if (at == text.size() || !stands_for(text[at], wanted)) return std::nullopt;
        ++at;
    }
    return at;
}

/// The letter that is read before or behind a place; a blank at the ends of the text.
char32_t letter_before(std::u32string_view text, std::size_t place) {
    while (place > 0 && is_optional(text[place - 1]))
        --place;
    return place > 0 ? text[place - 1] : U' ';
}
char32_t letter_at(std::u32string_view text, std::size_t place) {
    while (place < text.size() && is_optional(text[place]))
        ++place;
    return place < text.size() ? text[place] : U' ';
}

/// Whether two letters beside each other are parts of one word.
bool in_one_word(char32_t left, char32_t right) {
    return is_word_letter(left) && is_word_letter(right) && !stands_without_blanks(left) &&
           !stands_without_blanks(right);
}

bool is_whole(std::u32string_view text, const Match& match) {
    return !in_one_word(letter_before(text, match.first), letter_at(text, match.first)) &&
           !in_one_word(letter_before(text, match.end), letter_at(text, match.end));
}

/// An accent behind the place makes its last letter another one.
bool is_accented(std::u32string_view text, std::size_t end) {
    return end < text.size() && text[end] >= 0x0300 && text[end] <= 0x036F;
}

}  // namespace

std::optional<Match> find(const Folded& page, std::u32string_view sought, std::size_t start,
                          bool whole_words) {
    const std::u32string_view text = page.text;
    while (start < text.size()) {
        // A hyphen or a blank may be there as an optional one.
        const bool has_other_forms = sought[0] == U'-' || sought[0] == U' ';
        start = has_other_forms
                    ? static_cast<std::size_t>(
                          std::find_if(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(),
                                       [&](char32_t letter) { return stands_for(letter, sought[0]); }) -
                          text.begin())
                    : std::min(text.find(sought[0], start), text.size());
        if (start == text.size()) break;
        const auto end = end_of(text, sought, start);
        if (end && !is_accented(text, *end) && (!whole_words || is_whole(text, {start, *end})))
            return Match{start, *end};
        ++start;
    }
    return std::nullopt;
}

Match letters_of(const Folded& page, const Match& part) {
    std::size_t first = part.first;
    std::size_t end = part.end;
    // A blank has no letter of its own.
    while (first + 1 < end && page.text[first] == U' ')
        ++first;
    while (end > first + 1 && page.text[end - 1] == U' ')
        --end;
    const auto [lowest, highest] =
        std::minmax_element(page.origin.begin() + static_cast<std::ptrdiff_t>(first),
                            page.origin.begin() + static_cast<std::ptrdiff_t>(end));
    return {*lowest, std::size_t{*highest} + 1};
}

}  // namespace foliant::hosts::acrobat::text
