#include "hosts/acrobat/text/reading_direction.h"

#include <algorithm>
#include <glib.h>
#include <string_view>

#include "hosts/acrobat/text/letters.h"

namespace foliant::hosts::acrobat::text {
namespace {

using Line = std::vector<Glyph>;
using Place = Line::iterator;

bool to_the_left(const Glyph& glyph) {
    return is_right_to_left(glyph.letter);
}
bool to_the_right(const Glyph& glyph) {
    return g_unichar_isalpha(glyph.letter) != 0 && !to_the_left(glyph);
}
bool numeric(const Glyph& glyph) {
    return is_digit(glyph.letter);
}

/// Behind the last of those that are `inside`, from one on and before the first that is `outside`.
template <typename Inside, typename Outside>
Place end_of_stretch(Place from, Place end, Inside inside, Outside outside) {
    Place behind = from + 1;
    for (Place next = behind; next != end && !outside(*next); ++next)
        if (inside(*next)) behind = next + 1;
    return behind;
}

/// Behind the number that begins there. What stands between its digits belongs to it; a hyphen between the digits
/// that come with Arabic letters separates two numbers.
Place end_of_number(Place from, Place end) {
    const bool is_arabic = from->letter >= 0x0660 && from->letter <= 0x0669;
    return end_of_stretch(from, end, numeric, [&](const Glyph& glyph) {
        constexpr std::u32string_view separators = U".,:/";
        const bool joins = separators.find(glyph.letter) != std::u32string_view::npos ||
                           (!is_arabic && (glyph.letter == U'-' || glyph.letter == U'+'));
        return !numeric(glyph) && !joins;
    });
}

/// Turns what is read to the right round: words with the numbers between them as a whole, numbers alone one by one.
void turn_words_or_numbers(Place from, Place end) {
    if (std::any_of(from, end, to_the_right)) {
        std::reverse(from, end);
        return;
    }
    while ((from = std::find_if(from, end, numeric)) != end) {
        const Place behind = end_of_number(from, end);
        std::reverse(from, behind);
        from = behind;
    }
}

bool opens(char32_t letter) {
    const GUnicodeType type = g_unichar_type(letter);
    return type == G_UNICODE_OPEN_PUNCTUATION || type == G_UNICODE_INITIAL_PUNCTUATION;
}
bool closes(char32_t letter) {
    const GUnicodeType type = g_unichar_type(letter);
    return type == G_UNICODE_CLOSE_PUNCTUATION || type == G_UNICODE_FINAL_PUNCTUATION;
}

/// Many files say of a bracket what it looks like, and not what it is: then the first one closes and the last opens.
void mirror(const std::vector<Glyph*>& brackets) {
    if (brackets.empty() || !closes(brackets.front()->letter) || !opens(brackets.back()->letter)) return;
    for (Glyph* const bracket : brackets) {
        gunichar other = 0;
        if (g_unichar_get_mirror_char(bracket->letter, &other) != 0) bracket->letter = other;
    }
}

/// Turns round what is read to the left, but for what in it is not.
void turn(Place from, Place end) {
    std::reverse(from, end);
    std::vector<Glyph*> brackets;
    for (Place at = from; at != end;) {
        const auto runs_to_the_right = [](const Glyph& glyph) {
            return to_the_right(glyph) || numeric(glyph);
        };
        if (runs_to_the_right(*at)) {
            const Place behind = end_of_stretch(at, end, runs_to_the_right, to_the_left);
            turn_words_or_numbers(at, behind);
            at = behind;
            continue;
        }
        if (opens(at->letter) || closes(at->letter)) brackets.push_back(&*at);
        ++at;
    }
    mirror(brackets);
}

}  // namespace

void put_in_reading_order(Line& line, bool mostly_to_the_left) {
    if (mostly_to_the_left || std::none_of(line.begin(), line.end(), to_the_right)) {
        turn(line.begin(), line.end());
        return;
    }
    Place from = line.begin();
    while ((from = std::find_if(from, line.end(), to_the_left)) != line.end()) {
        const Place behind = end_of_stretch(from, line.end(), to_the_left, to_the_right);
        turn(from, behind);
        from = behind;
    }
}

}  // namespace foliant::hosts::acrobat::text
