#include "platform/win32/text.h"

#include <cstdint>
#include <windows.h>

namespace foliant::platform::win32 {
namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool is_high_half(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool is_low_half(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// How many bytes a sequence with that first byte has; 0 when none begins so.
std::size_t sequence_length(std::uint8_t lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// Takes one character off `rest`, which is not empty; one byte when that byte begins no character.
char32_t take_character(std::string_view& rest) {
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<std::uint8_t>(rest.front());
    const std::size_t length = sequence_length(lead);
    char32_t character = length > 1 ? lead & (0xFFU >> (length + 1)) : lead;
    bool whole = length > 0 && length <= rest.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        const auto byte = static_cast<std::uint8_t>(rest[i]);
        whole = (byte & 0xC0U) == 0x80;
        character = (character << 6U) | (byte & 0x3FU);
    }
    whole = whole && character >= smallest[length] && character <= 0x10FFFF;
    rest.remove_prefix(whole ? length : 1);
    return whole ? character : replacement;
}

void append_utf8(std::string& out, char32_t c) {
    const auto put = [&](char32_t bits) { out.push_back(static_cast<char>(bits)); };
    const auto put_rest = [&](unsigned shift) { put(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put_rest(0);
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put_rest(6);
        put_rest(0);
    } else {
        put(0xF0 | (c >> 18));
        put_rest(12);
        put_rest(6);
        put_rest(0);
    }
}

}  // namespace

std::wstring to_utf16(std::string_view utf8) {
    std::wstring utf16;
    utf16.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t c = take_character(utf8);
        if (c > 0xFFFF) {
            utf16.push_back(static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10U)));
            utf16.push_back(static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FFU)));
        } else {
            utf16.push_back(static_cast<wchar_t>(c));
        }
    }
    return utf16;
}

std::string to_utf8(std::wstring_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t c = utf16[i];
        if (is_high_half(c) && i + 1 < utf16.size() && is_low_half(utf16[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10U) + (static_cast<char32_t>(utf16[++i]) - 0xDC00);
        }
        append_utf8(utf8, c);
    }
    return utf8;
}

std::string to_ansi(std::string_view utf8) {
    const std::wstring wide = to_utf16(utf8);
    if (wide.empty()) return {};
    const auto units = static_cast<int>(wide.size());
    // A code page of UTF-8 takes no flag and no replacement character: it has them all.
    const bool has_all = GetACP() == CP_UTF8;
    const DWORD flags = has_all ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* instead = has_all ? nullptr : "?";
    const int size = WideCharToMultiByte(CP_ACP, flags, wide.data(), units, nullptr, 0, instead, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, flags, wide.data(), units, bytes.data(), size, instead, nullptr);
    return bytes;
}

std::string from_ansi(std::string_view bytes) {
    if (bytes.empty()) return {};
    const auto size = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), units);
    return to_utf8(wide);
}

}  // namespace foliant::platform::win32
