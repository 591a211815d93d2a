#include "hosts/pages/postscript_syntax.h"

#include <array>
#include <charconv>
#include <glib.h>
#include <memory>

namespace foliant::hosts::pages {

void append_number(std::string& postscript, double number) {
    constexpr int digits = 6;  // as poppler writes them
    std::array<char, 32> written{};
    const auto result =
        std::to_chars(written.begin(), written.end(), number, std::chars_format::general, digits);
    postscript.append(written.begin(), result.ptr).push_back(' ');
}

void append_string(std::string& postscript, std::string_view bytes) {
    constexpr std::size_t most_in_line = 60;
    postscript += '(';
    std::size_t in_line = 0;
    for (const char byte : bytes) {
        if (in_line++ == most_in_line) {
            postscript += "\\\n";
            in_line = 1;
        }
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '(' || byte == ')' || byte == '\\') {
            postscript += '\\';
            postscript += byte;
        } else if (code >= 0x20 && code < 0x7F) {
            postscript += byte;
        } else {
            postscript += '\\';
            for (const unsigned shift : {6U, 3U, 0U})
                postscript += static_cast<char>('0' + ((code >> shift) & 7U));
        }
    }
    postscript += ')';
}

void append_digits(std::string& postscript, std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::size_t bytes_a_line = 100;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i > 0 && i % bytes_a_line == 0) postscript += '\n';
        const auto byte = static_cast<unsigned char>(bytes[i]);
        postscript += digits[byte >> 4U];
        postscript += digits[byte & 0xFU];
    }
}

void append_utf16(std::string& postscript, std::string_view text) {
    const std::unique_ptr<char, decltype(&g_free)> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), g_free);
    glong units = 0;
    const std::unique_ptr<gunichar2, decltype(&g_free)> utf16(
        g_utf8_to_utf16(valid.get(), -1, nullptr, &units, nullptr), g_free);
    std::string bytes;
    for (glong i = 0; utf16 && i < units; ++i) {
        bytes += static_cast<char>(utf16.get()[i] >> 8U);
        bytes += static_cast<char>(utf16.get()[i] & 0xFFU);
    }
    append_digits(postscript, bytes);
}

std::string title_comment(std::string_view title) {
    constexpr std::size_t longest = 255;
    std::string comment = "%%Title: ";
    for (const char character : title) {
        // Every character beyond ASCII becomes one question mark: the bytes that continue it are left out.
        if ((static_cast<unsigned char>(character) & 0xC0U) == 0x80U) continue;
        comment += character >= ' ' && character <= '~' ? character : '?';
    }
    return comment.substr(0, longest) + "\n";
}

}  // namespace foliant::hosts::pages
