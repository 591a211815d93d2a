#include "automation/text.h"

#include <cstdint>

#include "automation/error.h"

namespace foliant::automation {
namespace {

struct Decoded {
    char32_t code_point;
    std::size_t bytes;
    bool valid;
};

Decoded decode_first(std::string_view text) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80) return {lead, 1, true};
    const std::size_t length = lead >= 0xF0 && lead < 0xF8 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
    if (length == 1 || lead >= 0xF8 || text.size() < length) return {lead, 1, false};
    char32_t code_point = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {lead, 1, false};
        code_point = (code_point << 6) | (byte(i) & 0x3FU);
    }
    return {code_point, length, true};
}

void encode(char32_t code_point, std::string& out) {
    const auto put = [&](char32_t bits) { out.push_back(static_cast<char>(bits)); };
    if (code_point < 0x80) {
        put(code_point);
    } else if (code_point < 0x800) {
        put(0xC0 | (code_point >> 6));
        put(0x80 | (code_point & 0x3F));
    } else {
        put(0xE0 | (code_point >> 12));
        put(0x80 | ((code_point >> 6) & 0x3F));
        put(0x80 | (code_point & 0x3F));
    }
}

bool is_ascii(char c) noexcept {
    return static_cast<std::uint8_t>(c) < 0x80;
}

char lower_ascii(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

char32_t lower(char32_t c) noexcept {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    if ((c >= 0x100 && c <= 0x137 && c != 0x130) || (c >= 0x14A && c <= 0x177)) return c | 1;
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return (c & 1) != 0 ? c + 1 : c;
    if (c == 0x178) return 0xFF;
    if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return c + 0x20;
    if (c >= 0x410 && c <= 0x42F) return c + 0x20;
    if (c >= 0x400 && c <= 0x40F) return c + 0x50;
    return c;
}

}  // namespace

std::string_view trim_blanks(std::string_view text) noexcept {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return text.substr(text.size());
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::size_t text_length(std::string_view text) noexcept {
    std::size_t units = 0;
    while (!text.empty()) {
        const Decoded first = decode_first(text);
        units += first.code_point > 0xFFFF ? 2 : 1;
        text.remove_prefix(first.bytes);
    }
    return units;
}

std::string without_last(std::string_view text, std::size_t units) {
    const std::size_t length = text_length(text);
    if (length < units) throw Error(RuntimeError::invalid_procedure_call);
    std::size_t keep = length - units;
    std::size_t position = 0;
    while (keep > 0) {
        const Decoded next = decode_first(text.substr(position));
        const std::size_t width = next.code_point > 0xFFFF ? 2 : 1;
        if (width > keep) break;
        keep -= width;
        position += next.bytes;
    }
    return std::string(text.substr(0, position));
}

std::string to_lower(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (is_ascii(text.front())) {
            result.push_back(lower_ascii(text.front()));
            text.remove_prefix(1);
            continue;
        }
        const Decoded first = decode_first(text);
        const char32_t small = first.valid ? lower(first.code_point) : first.code_point;
        if (small != first.code_point) {
            encode(small, result);
        } else {
            result.append(text.substr(0, first.bytes));
        }
        text.remove_prefix(first.bytes);
    }
    return result;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
    return compare_ignoring_case(a, b) == 0;
}

int compare_ignoring_case(std::string_view a, std::string_view b) {
    for (; !a.empty() && !b.empty() && is_ascii(a.front()) && is_ascii(b.front());
         a.remove_prefix(1), b.remove_prefix(1)) {
        const int difference = lower_ascii(a.front()) - lower_ascii(b.front());
        if (difference != 0) return difference;
    }
    return to_lower(a).compare(to_lower(b));
}

std::string_view file_name_part(std::string_view path, char separator) noexcept {
    return path.substr(path.rfind(separator) + 1);
}

std::string with_separator(std::string folder, char separator) {
    if (folder.empty() || folder.back() != separator) folder.push_back(separator);
    return folder;
}

}  // namespace foliant::automation
