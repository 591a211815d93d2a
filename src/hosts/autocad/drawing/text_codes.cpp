#include "hosts/autocad/drawing/text_codes.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <iconv.h>
#include <memory>
#include <optional>
#include <utility>

namespace foliant::hosts::autocad {
namespace {

constexpr std::string_view unicode = "UTF-8";
constexpr std::string_view western = "WINDOWS-1252";

constexpr std::array<std::pair<std::string_view, std::string_view>, 26> encodings{{
    {"ansi_874", "WINDOWS-874"},
    {"ansi_932", "CP932"},
    {"ansi_936", "GBK"},
    {"ansi_949", "CP949"},
    {"ansi_950", "BIG5"},
    {"ansi_1250", "WINDOWS-1250"},
    {"ansi_1251", "WINDOWS-1251"},
    {"ansi_1252", "WINDOWS-1252"},
    {"ansi_1253", "WINDOWS-1253"},
    {"ansi_1254", "WINDOWS-1254"},
    {"ansi_1255", "WINDOWS-1255"},
    {"ansi_1256", "WINDOWS-1256"},
    {"ansi_1257", "WINDOWS-1257"},
    {"ansi_1258", "WINDOWS-1258"},
    {"dos437", "CP437"},
    {"dos850", "CP850"},
    {"dos852", "CP852"},
    {"dos855", "CP855"},
    {"dos866", "CP866"},
    {"dos932", "CP932"},
    {"iso8859-1", "ISO-8859-1"},
    {"iso8859-2", "ISO-8859-2"},
    {"iso8859-5", "ISO-8859-5"},
    {"mac-roman", "MACINTOSH"},
    {"utf-8", "UTF-8"},
    {"utf8", "UTF-8"},
}};

/// Of \M+NXXXX, from N = 1.
constexpr std::array<std::string_view, 5> double_byte_encodings{"CP932", "BIG5", "CP949", "JOHAB", "GBK"};

bool is_ascii(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

std::optional<std::string> converted(std::string_view text, std::string_view encoding) {
    const iconv_t converter = ::iconv_open(std::string(unicode).c_str(), std::string(encoding).c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;  // NOLINT: its own way to say no
    std::string result(text.size() * 4 + 4, '\0');
    char* in = const_cast<char*>(text.data());  // NOLINT: iconv does not write there
    std::size_t in_left = text.size();
    char* out = result.data();
    std::size_t out_left = result.size();
    const bool is_well = ::iconv(converter, &in, &in_left, &out, &out_left) != static_cast<std::size_t>(-1);
    ::iconv_close(converter);
    if (!is_well) return std::nullopt;
    result.resize(result.size() - out_left);
    return result;
}

/// As many hexadecimal digits as are asked for, at a place in a text.
std::optional<std::uint32_t> hexadecimal(std::string_view text, std::size_t at, std::size_t digits) {
    if (text.size() < at + digits) return std::nullopt;
    std::uint32_t number = 0;
    const char* const end = text.data() + at + digits;
    const auto [stop, problem] = std::from_chars(text.data() + at, end, number, 16);
    return problem == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// What \U+XXXX or \M+NXXXX at that place stands for, which is moved behind it.
std::optional<std::string> escaped(std::string_view text, std::size_t& at) {
    if (text.substr(at, 3) == "\\U+") {
        const auto code = hexadecimal(text, at + 3, 4);
        if (!code) return std::nullopt;
        at += 7;
        // Beyond the first plane a character is written as two halves.
        if (*code >> 10U == 0x36 && text.substr(at, 3) == "\\U+")
            if (const auto low = hexadecimal(text, at + 3, 4); low && *low >> 10U == 0x37) {
                at += 7;
                return utf8_of(0x10000 + ((*code & 0x3FFU) << 10U) + (*low & 0x3FFU));
            }
        return utf8_of(*code);
    }
    if (text.substr(at, 3) != "\\M+" || text.size() < at + 8) return std::nullopt;
    const auto page = static_cast<std::size_t>(text[at + 3] - '1');
    const auto code = hexadecimal(text, at + 4, 4);
    if (!code || page >= double_byte_encodings.size()) return std::nullopt;
    at += 8;
    const std::string bytes{static_cast<char>(*code >> 8U), static_cast<char>(*code & 0xFFU)};
    return converted(bytes, double_byte_encodings[page]).value_or("?");
}

}  // namespace

std::string utf8_of(std::uint32_t character) {
    const auto tail = [character](unsigned shift) {
        return static_cast<char>(0x80U | (character >> shift & 0x3FU));
    };
    if (character < 0x80) return {static_cast<char>(character)};
    if (character < 0x800) return {static_cast<char>(0xC0U | character >> 6U), tail(0)};
    if (character >> 11U == 0x1B) return {};  // half a character
    if (character < 0x10000) return {static_cast<char>(0xE0U | character >> 12U), tail(6), tail(0)};
    if (character < 0x110000)
        return {static_cast<char>(0xF0U | character >> 18U), tail(12), tail(6), tail(0)};
    return {};
}

TextDecoder::TextDecoder(std::string_view version, std::string_view code_page) : encoding_(western) {
    const auto known =
        std::ranges::find(encodings, folded(code_page), &decltype(encodings)::value_type::first);
    if (known != encodings.end()) encoding_ = known->second;
    if (version >= "AC1021") encoding_ = unicode;
}

std::string TextDecoder::operator()(std::string_view text) const {
    std::string plain;
    if (is_ascii(text))
        plain = text;
    else if (auto first = converted(text, encoding_))
        plain = std::move(*first);
    else if (auto second = converted(text, encoding_ == unicode ? western : unicode))
        plain = std::move(*second);
    else
        plain = converted(text, "ISO-8859-1").value_or("?");
    std::string result;
    for (std::size_t at = 0; at < plain.size();) {
        const auto character = plain[at] == '\\' ? escaped(plain, at) : std::nullopt;
        if (character)
            result += *character;
        else
            result += plain[at++];
    }
    return result;
}

std::string expand_percent_codes(std::string_view text,
                                 const std::function<void(char, std::size_t)>& on_switch) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at, 2) != "%%" || at + 2 >= text.size()) {
            result += text[at++];
            continue;
        }
        const char code = static_cast<char>(std::tolower(static_cast<unsigned char>(text[at + 2])));
        unsigned number = 0;
        const auto end = text.data() + std::min(at + 5, text.size());
        const char* const stop = std::from_chars(text.data() + at + 2, end, number).ptr;
        at += 3;
        if (code == 'c')
            result += "\u2300";
        else if (code == 'd')
            result += "\u00B0";
        else if (code == 'p')
            result += "\u00B1";
        else if (code == 'u' || code == 'o' || code == 'k')
            (on_switch) ? on_switch(code, result.size()) : void();
        else if (stop != text.data() + at - 1)
            result += utf8_of(number), at = static_cast<std::size_t>(stop - text.data());
        else if (code == '%')
            result += '%';
        else
            at -= 1, result += "%%";
    }
    return result;
}

std::string folded(std::string_view name) {
    std::string result(name);
    std::ranges::transform(result, result.begin(), [](unsigned char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A'))
                                              : static_cast<char>(letter);
    });
    return result;
}

}  // namespace foliant::hosts::autocad
