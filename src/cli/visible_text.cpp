#include "cli/visible_text.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace foliant::cli {
namespace {

/// The character that `text` begins with and how many bytes it takes; no bytes when it begins with none.
struct Character {
    std::uint32_t code = 0;
    std::size_t bytes = 0;
};

Character first_of(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {};
    std::uint32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80) return {};
        code = code << 6U | (byte(i) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < least[length] || code > 0x10FFFF || surrogate ? Character{} : Character{code, length};
}

bool is_control(std::uint32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

/// Changes of direction, separators of lines, and what takes no room.
bool deceives(std::uint32_t code) {
    const auto within = [code](std::uint32_t first, std::uint32_t last) {
        return code >= first && code <= last;
    };
    return code == 0x61C || code == 0xFEFF || within(0x200B, 0x200F) || within(0x2028, 0x202E) ||
           within(0x2060, 0x206F) || within(0xE0000, 0xE007F);
}

std::string written_out(const char* format, std::uint32_t number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

std::string shown(std::string_view text, bool keeps_lines) {
    std::string result;
    while (!text.empty()) {
        const Character c = first_of(text);
        if (c.bytes == 0) {
            result += written_out("\\x%02X", static_cast<std::uint8_t>(text.front()));
        } else if (c.code == '\n' || c.code == '\t') {
            result += keeps_lines ? std::string(1, text.front()) : c.code == '\n' ? "\\n" : "\\t";
        } else if (is_control(c.code)) {
            result += written_out("\\x%02X", c.code);
        } else if (deceives(c.code)) {
            result += written_out("\\u%04X", c.code);
        } else {
            result += text.substr(0, c.bytes);
        }
        text.remove_prefix(c.bytes == 0 ? 1 : c.bytes);
    }
    return result;
}

}  // namespace

std::string visible_text(std::string_view text) {
    return shown(text, true);
}

std::string visible_line(std::string_view text) {
    return shown(text, false);
}

}  // namespace foliant::cli
