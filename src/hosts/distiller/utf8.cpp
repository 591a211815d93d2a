#include "hosts/distiller/utf8.h"

#include <cstddef>

namespace foliant::hosts::distiller {
namespace {

bool is_continuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// The bytes of the well-formed sequence that `text` begins with; 0 when it begins with none.
std::size_t sequence_length(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const auto second = text.size() > 1 ? static_cast<unsigned char>(text[1]) : 0;
    std::size_t length = 0;
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) length = 2;
    if (lead >= 0xE0 && lead <= 0xEF) length = 3;
    if (lead >= 0xF0 && lead <= 0xF4) length = 4;
    const bool is_overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool is_no_character = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
    if (length == 0 || text.size() < length || is_overlong || is_no_character) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!is_continuation(text[i])) return 0;
    }
    return length;
}

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequence_length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string from_latin1(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | (byte >> 6));
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

std::string octal(unsigned char byte) {
    std::string text = "\\";
    for (const int shift : {6, 3, 0})
        text += static_cast<char>('0' + ((byte >> shift) & 7));
    return text;
}

/// U+0080 to U+009F, among which are the one-letter forms of a terminal's escape sequences.
bool begins_high_control(std::string_view text) {
    return text.size() > 1 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) < 0xA0;
}

}  // namespace

std::string as_utf8(std::string_view bytes) {
    return is_utf8(bytes) ? std::string(bytes) : from_latin1(bytes);
}

std::string visible(std::string_view utf8) {
    std::string text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte == '\n') {
            text += "\\n";
        } else if (byte < 0x20 || byte == 0x7F) {
            text += octal(byte);
        } else if (begins_high_control(utf8.substr(i))) {
            text += octal(static_cast<unsigned char>(utf8[++i]));
        } else {
            text += utf8[i];
        }
    }
    return text;
}

}  // namespace foliant::hosts::distiller
