#include "hosts/web/base64.h"

#include <array>
#include <cstdint>

namespace foliant::hosts::web {
namespace {

constexpr std::uint8_t no_digit = 64;

constexpr std::array<std::uint8_t, 256> digit_values = [] {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<std::uint8_t, 256> values{};
    values.fill(no_digit);
    for (std::size_t i = 0; i < digits.size(); ++i)
        values[static_cast<unsigned char>(digits[i])] = static_cast<std::uint8_t>(i);
    return values;
}();

}  // namespace

std::string decode_base64(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t held = 0;
    unsigned bits = 0;
    for (const char letter : text) {
        const std::uint8_t value = digit_values[static_cast<unsigned char>(letter)];
        if (value == no_digit) continue;
        held = held << 6U | value;
        bits += 6;
        if (bits < 8) continue;
        bits -= 8;
        bytes += static_cast<char>(held >> bits & 0xFFU);
    }
    return bytes;
}

}  // namespace foliant::hosts::web
