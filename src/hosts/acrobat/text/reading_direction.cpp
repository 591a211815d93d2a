#include "hosts/acrobat/text/reading_direction.h"

#include <algorithm>
#include <glib.h>

#include "hosts/acrobat/text/letters.h"

namespace foliant::hosts::acrobat::text {
namespace {

using Line = std::vector<Glyph>;

bool to_the_left(const Glyph& glyph) {
    return is_right_to_left(glyph.letter);
}
bool to_the_right(const Glyph& glyph) {
    return g_unichar_isalpha(glyph.letter) != 0 && !to_the_left(glyph);
}
bool numeric(const Glyph& glyph) {
    return is_digit(glyph.letter);
}

/// Turns round each stretch that begins and ends with letters of which `inside` is true and has none of which
/// `outside` is; what stands between stretches stays where it is.
template <typename Inside, typename Outside>
void turn_stretches(Line::iterator from, Line::iterator end, Inside inside, Outside outside) {
    while ((from = std::find_if(from, end, inside)) != end) {
        auto behind = from + 1;
        for (auto next = behind; next != end && !outside(*next); ++next)
            if (inside(*next)) behind = next + 1;
        std::reverse(from, behind);
        from = behind;
    }
}

/// Between digits, these belong to the number.
bool parts_number(const Glyph& glyph) {
    return numeric(glyph) || glyph.letter == U'.' || glyph.letter == U',' || glyph.letter == U':' ||
           glyph.letter == U'/';
}

}  // namespace

void put_in_reading_order(Line& line, bool mostly_to_the_left) {
    const auto leaves_number = [](const Glyph& glyph) { return !parts_number(glyph); };
    if (mostly_to_the_left) {
        std::reverse(line.begin(), line.end());
        turn_stretches(
            line.begin(), line.end(),
            [](const Glyph& glyph) { return to_the_right(glyph) || numeric(glyph); },
            [](const Glyph& glyph) { return to_the_left(glyph); });
        return;
    }
    auto from = line.begin();
    while ((from = std::find_if(from, line.end(), to_the_left)) != line.end()) {
        const auto behind = std::find_if(from, line.end(), to_the_right);
        turn_stretches(from, behind, to_the_left, to_the_right);
        turn_stretches(from, behind, numeric, leaves_number);
        from = behind;
    }
}

}  // namespace foliant::hosts::acrobat::text
