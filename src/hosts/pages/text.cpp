#include "hosts/pages/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <glib.h>
#include <iconv.h>
#include <memory>
#include <stdexcept>
#include <type_traits>

#include "hosts/pages/utf16.h"

namespace foliant::hosts::pages {

namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16_le_mark = "\xFF\xFE";
constexpr std::string_view utf16_be_mark = "\xFE\xFF";
constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr std::size_t sample_size = 65536;

bool is_control(unsigned char byte) {
    return byte < 0x20 || byte == 0x7F;
}

/// Texts hold zeros, but not in the middle of their characters.
bool is_utf8(std::string_view file) {
    while (!file.empty()) {
        const std::string_view part = file.substr(0, file.find('\0'));
        if (g_utf8_validate_len(part.data(), part.size(), nullptr) == FALSE) return false;
        file.remove_prefix(std::min(part.size() + 1, file.size()));
    }
    return true;
}

std::string_view without_mark(std::string_view file, std::string_view mark) {
    return file.starts_with(mark) ? file.substr(mark.size()) : file;
}

/// Turns bytes into UTF-8, piece by piece.
class Conversion {
  public:
    explicit Conversion(const char* encoding) : handle_(::iconv_open("UTF-8", encoding)) {
        if (handle_.get() == iconv_t(-1)) {  // NOLINT(performance-no-int-to-ptr): as the system has it
            handle_.release();  // NOLINT(bugprone-unused-return-value): there is nothing to close
            throw std::runtime_error(std::string("this machine cannot read texts in ") + encoding);
        }
    }

    /// `unit` is how many bytes are passed over where they mean nothing.
    std::string all(std::string_view bytes, std::size_t unit) {
        std::string text;
        text.reserve(bytes.size() + bytes.size() / 4);
        while (!bytes.empty()) {
            const bool is_understood = convert_some(bytes, text);
            if (is_understood) continue;
            text += replacement;
            bytes.remove_prefix(std::min(unit, bytes.size()));
        }
        return text;
    }

  private:
    struct Close {
        void operator()(iconv_t handle) const { ::iconv_close(handle); }
    };

    /// False at bytes that mean nothing, or that the end has cut off.
    bool convert_some(std::string_view& bytes, std::string& text) {
        std::array<char, 32768> piece;
        char* in = const_cast<char*>(bytes.data());  // an old signature: nothing is written there
        std::size_t left = bytes.size();
        char* out = piece.data();
        std::size_t room = piece.size();
        const bool failed = ::iconv(handle_.get(), &in, &left, &out, &room) == std::size_t(-1);
        const int reason = errno;
        text.append(piece.data(), out);
        bytes.remove_prefix(bytes.size() - left);
        return !failed || reason == E2BIG;
    }

    std::unique_ptr<std::remove_pointer_t<iconv_t>, Close> handle_;
};

std::string utf8_text(std::string_view file) {
    return Conversion("UTF-8").all(without_mark(file, utf8_mark), 1);
}

std::string utf16_text(std::string_view file, std::string_view mark, const char* encoding) {
    return Conversion(encoding).all(without_mark(file, mark), 2);
}

/// Control characters as blanks of the same length: those of one byte as U+0020, the others as U+00A0.
void blank_controls(std::string& text) {
    constexpr std::string_view kept = "\t\n\f\r";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (is_control(byte)) {
            if (kept.find(text[i]) == std::string_view::npos) text[i] = ' ';
        } else if (byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0) {
            text[i + 1] = '\xA0';
        }
    }
}

/// Whether that is a number of Unicode which never is a letter: for cairo a text with one is none.
bool is_noncharacter(gunichar letter) {
    constexpr gunichar last_of_plane = 0xFFFE;
    return (letter & last_of_plane) == last_of_plane || (letter >= 0xFDD0 && letter <= 0xFDEF);
}

void replace_noncharacters(std::string& text) {
    constexpr std::string_view beginnings = "\xEF\xF0\xF1\xF2\xF3\xF4";
    for (std::size_t place = text.find_first_of(beginnings); place != std::string::npos;
         place = text.find_first_of(beginnings, place + 1)) {
        const char* letter = text.data() + place;
        if (is_noncharacter(g_utf8_get_char(letter)))
            text.replace(place, static_cast<std::size_t>(g_utf8_next_char(letter) - letter), replacement);
    }
}

}  // namespace

Encoding encoding_of(std::string_view file) {
    if (file.starts_with(utf16_le_mark)) return Encoding::utf16_le;
    if (file.starts_with(utf16_be_mark)) return Encoding::utf16_be;
    if (file.starts_with(utf8_mark)) return Encoding::utf8;
    if (const auto order = utf16_without_mark(file))
        return *order == ByteOrder::little_endian ? Encoding::utf16_le : Encoding::utf16_be;
    return is_utf8(file) ? Encoding::utf8 : Encoding::code_page;
}

bool is_for_programs(std::string_view file) {
    constexpr std::string_view of_texts("\t\n\v\f\r\b\x1A\x1B\0", 9);
    constexpr std::ptrdiff_t most_kinds = 4;
    constexpr std::size_t share = 100;
    const Encoding encoding = encoding_of(file);
    if (encoding == Encoding::utf16_le || encoding == Encoding::utf16_be) return false;
    const std::string_view sample = file.substr(0, sample_size);
    std::array<bool, 128> kinds{};
    std::size_t count = 0;
    for (const char character : sample) {
        const auto byte = static_cast<unsigned char>(character);
        if (!is_control(byte) || of_texts.find(character) != std::string_view::npos) continue;
        kinds[byte] = true;
        ++count;
    }
    return std::ranges::count(kinds, true) > most_kinds && count > sample.size() / share;
}

std::string text_of(std::string_view file, int code_page) {
    const auto decoded = [&] {
        switch (encoding_of(file)) {
            case Encoding::utf16_le:
                return utf16_text(file, utf16_le_mark, "UTF-16LE");
            case Encoding::utf16_be:
                return utf16_text(file, utf16_be_mark, "UTF-16BE");
            case Encoding::utf8:
                return utf8_text(file);
            case Encoding::code_page:
                break;
        }
        return Conversion(("CP" + std::to_string(code_page)).c_str()).all(file, 1);
    };
    std::string text = decoded();
    blank_controls(text);
    replace_noncharacters(text);
    return text;
}

}  // namespace foliant::hosts::pages
