#include "hosts/acrobat/text/letters.h"

#include <glib.h>

namespace foliant::hosts::acrobat::text {

bool is_right_to_left(char32_t letter) {
    const bool in_ranges = (letter >= 0x0590 && letter <= 0x08FF) || (letter >= 0xFB1D && letter <= 0xFDFF) ||
                           (letter >= 0xFE70 && letter <= 0xFEFC) ||
                           (letter >= 0x10800 && letter <= 0x10FFF) ||
                           (letter >= 0x1E800 && letter <= 0x1EFFF);
    return in_ranges && !is_digit(letter);  // numbers are written from left to right there too
}

bool is_word_letter(char32_t letter) {
    if (letter < 0x80)
        return (letter >= U'a' && letter <= U'z') || (letter >= U'A' && letter <= U'Z') || is_digit(letter);
    return g_unichar_isalnum(letter) != 0 || is_mark(letter);
}

bool stands_without_blanks(char32_t letter) {
    if (letter < 0x0E00) return false;
    switch (g_unichar_get_script(letter)) {
        case G_UNICODE_SCRIPT_HAN:
        case G_UNICODE_SCRIPT_HIRAGANA:
        case G_UNICODE_SCRIPT_KATAKANA:
        case G_UNICODE_SCRIPT_BOPOMOFO:
        case G_UNICODE_SCRIPT_THAI:
        case G_UNICODE_SCRIPT_LAO:
        case G_UNICODE_SCRIPT_KHMER:
        case G_UNICODE_SCRIPT_MYANMAR:
            return true;
        default:
            // Punctuation that comes with those scripts, and the katakana's long vowel.
            return (letter >= 0x3000 && letter <= 0x303F) || letter == 0x30FB || letter == 0x30FC;
    }
}

bool is_mark(char32_t letter) {
    return letter >= 0x0300 && g_unichar_ismark(letter) != 0;
}

bool is_digit(char32_t letter) {
    return letter < 0x80 ? letter >= U'0' && letter <= U'9' : g_unichar_isdigit(letter) != 0;
}

}  // namespace foliant::hosts::acrobat::text
