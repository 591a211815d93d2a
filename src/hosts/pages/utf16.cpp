#include "hosts/pages/utf16.h"

#include <algorithm>
#include <cstddef>
#include <glib.h>

namespace foliant::hosts::pages {

namespace {

constexpr std::size_t sample_size = 65536;

/// Texts in bytes hold hardly any of them. UTF-16 is full of them: every second byte in most alphabets, every tenth
/// to twentieth in Chinese.
bool is_strange(unsigned byte) {
    constexpr std::string_view usual = "\t\n\v\f\r\b\x1A\x1B";
    return byte < 0x20 && usual.find(static_cast<char>(byte)) == std::string_view::npos;
}

/// Whether a text may hold that letter.
bool is_readable(gunichar letter) {
    if (letter < 0x20) return !is_strange(letter);
    switch (g_unichar_type(letter)) {
        case G_UNICODE_CONTROL:
        case G_UNICODE_SURROGATE:
        case G_UNICODE_UNASSIGNED:
        case G_UNICODE_PRIVATE_USE:
            return false;
        default:
            return true;
    }
}

bool is_blank(gunichar letter) {
    return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
}

/// What a file says for and against being UTF-16 in one byte order.
class Evidence {
  public:
    Evidence(std::string_view sample, ByteOrder order) : units_(sample.size() / 2) {
        const std::size_t high = order == ByteOrder::big_endian ? 0 : 1;
        const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(sample[place]); };
        for (std::size_t i = 0; i + 1 < sample.size(); i += 2)
            add(byte(i + high), byte(i + 1 - high));
    }

    bool is_conclusive(bool could_be_utf8) const {
        return units_ > 0 && (is_in_an_alphabet() || (!could_be_utf8 && is_in_ideographs()));
    }

    /// Tells the order in which more of it is plain.
    std::size_t weight() const { return alphabetic_ + blanks_; }

  private:
    void add(unsigned high, unsigned low) {
        constexpr unsigned behind_alphabets = 0x20;
        constexpr unsigned often_with_zero[]{0x30, 0x4E};  // the blank of Chinese, and its "one"
        const gunichar unit = high << 8U | low;
        count_unreadable(unit);
        if (high < behind_alphabets) ++alphabetic_;
        if (is_blank(unit)) ++blanks_;
        if (is_strange(high)) ++(high == 0 ? zero_high_ : strange_high_);
        if (high < behind_alphabets) return;
        if (low != 0 && is_strange(low)) ++strange_low_;
        if (low == 0 && high != often_with_zero[0] && high != often_with_zero[1]) ++zero_low_;
    }

    void count_unreadable(gunichar unit) {
        constexpr gunichar pairs = 0xD800;
        constexpr gunichar seconds = 0xDC00;
        constexpr gunichar behind = 0xE000;
        if (unit >= seconds && unit < behind && first_of_pair_ != 0) {
            unit = 0x10000 + ((first_of_pair_ - pairs) << 10U) + (unit - seconds);
            first_of_pair_ = 0;
        } else if (first_of_pair_ != 0) {
            ++unreadable_;
            first_of_pair_ = 0;
        }
        if (unit >= pairs && unit < seconds)
            first_of_pair_ = unit;
        else if (!is_readable(unit))
            ++unreadable_;
    }

    /// Nearly all high bytes are small, which in bytes of a text is that of a line end or a tab at most.
    bool is_in_an_alphabet() const {
        const std::size_t for_it = zero_high_ + strange_high_;
        return unreadable_ <= units_ / 16 && alphabetic_ >= units_ - units_ / 4 &&
               for_it >= std::max(std::min(units_, fewest_), units_ / 16);
    }

    /// Low bytes are control characters as often as chance has it, and high bytes are not; but for the zeros of blanks
    /// and line ends. In bytes of a text the one would be like the other.
    bool is_in_ideographs() const {
        const std::size_t for_it = blanks_ + strange_low_;
        return unreadable_ <= units_ / 64 && for_it >= std::max(fewest_, units_ / 32) &&
               strange_high_ + zero_low_ <= std::max(for_it / 4, std::size_t{1});
    }

    static constexpr std::size_t fewest_ = 2;  ///< one may have come astray
    std::size_t units_;
    gunichar first_of_pair_ = 0;
    std::size_t unreadable_ = 0;
    std::size_t alphabetic_ = 0;
    std::size_t blanks_ = 0;
    std::size_t zero_high_ = 0;
    std::size_t strange_high_ = 0;
    std::size_t strange_low_ = 0;
    std::size_t zero_low_ = 0;
};

/// Texts hold zeros, but not in the middle of their characters; the sample may end there.
bool could_be_utf8(std::string_view sample) {
    constexpr std::ptrdiff_t longest_letter = 4;
    while (!sample.empty()) {
        const std::string_view part = sample.substr(0, sample.find('\0'));
        const char* end = nullptr;
        const bool is_whole = g_utf8_validate_len(part.data(), part.size(), &end) != FALSE;
        if (!is_whole && sample.data() + sample.size() - end >= longest_letter) return false;
        sample.remove_prefix(std::min(part.size() + 1, sample.size()));
    }
    return true;
}

}  // namespace

std::optional<ByteOrder> utf16_without_mark(std::string_view file) {
    if (file.size() % 2 != 0) return {};
    const std::string_view sample = file.substr(0, sample_size);
    const bool in_utf8 = could_be_utf8(sample);
    const Evidence little(sample, ByteOrder::little_endian);
    const Evidence big(sample, ByteOrder::big_endian);
    const bool is_little = little.is_conclusive(in_utf8);
    const bool is_big = big.is_conclusive(in_utf8);
    if (!is_little && !is_big) return {};
    if (is_little && is_big)
        return little.weight() >= big.weight() ? ByteOrder::little_endian : ByteOrder::big_endian;
    return is_little ? ByteOrder::little_endian : ByteOrder::big_endian;
}

}  // namespace foliant::hosts::pages
