#include "hosts/autocad/drawing/tags.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace foliant::hosts::autocad {
namespace {

constexpr std::string_view binary_start{"AutoCAD Binary DXF\r\n\x1a\0", 22};
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

std::string_view trimmed(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

std::string_view without_plus(std::string_view text) noexcept {
    return text.starts_with('+') ? text.substr(1) : text;
}

template <typename Number>
bool parse(std::string_view text, Number& number) noexcept {
    text = without_plus(text);
    return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
}

/// The binary form of DXF, as text.
class BinaryReader {
  public:
    explicit BinaryReader(std::string_view bytes) : rest_(bytes.substr(binary_start.size())) {
        // Up to release 12 a code is one byte; the first group is always "0 SECTION".
        wide_codes_ = rest_.size() > 1 && rest_[1] == '\0';
    }

    std::string text() {
        while (!rest_.empty() && write_group()) {
        }
        return std::move(text_);
    }

  private:
    template <typename Number>
    bool take(Number& number) {
        if (rest_.size() < sizeof(number)) return false;
        std::memcpy(&number, &rest_.front(), sizeof(number));
        rest_.remove_prefix(sizeof(number));
        return true;
    }

    bool take_code(int& code) {
        std::uint8_t narrow = 0;
        std::int16_t wide = 0;
        if (wide_codes_) return take(wide) && (code = wide, true);
        if (!take(narrow)) return false;
        code = narrow;
        return narrow != 255 || (take(wide) && (code = wide, true));
    }

    template <typename Number>
    bool write_number() {
        Number number{};
        if (!take(number)) return false;
        char digits[40];
        const auto end = [&] {
            if constexpr (std::is_floating_point_v<Number>)
                return std::to_chars(std::begin(digits), std::end(digits), number).ptr;
            else
                return std::to_chars(std::begin(digits), std::end(digits), static_cast<std::int64_t>(number))
                    .ptr;
        }();
        text_.append(std::begin(digits), end);
        return true;
    }

    bool write_text() {
        const std::size_t end = rest_.find('\0');
        if (end == std::string_view::npos) return false;
        // A line feed inside would begin another group.
        std::ranges::replace_copy(rest_.substr(0, end), std::back_inserter(text_), '\n', ' ');
        rest_.remove_prefix(end + 1);
        return true;
    }

    /// Nothing that is drawn lies in one.
    bool skip_chunk() {
        std::uint8_t length = 0;
        if (!take(length) || rest_.size() < length) return false;
        rest_.remove_prefix(length);
        return true;
    }

    bool write_value(int code) {
        const auto in = [code](int first, int last) { return code >= first && code <= last; };
        if (in(290, 299)) return write_number<std::int8_t>();
        if (in(60, 79) || in(170, 179) || in(270, 289) || in(370, 389) || in(400, 409) || in(1060, 1070))
            return write_number<std::int16_t>();
        if (in(90, 99) || in(420, 429) || in(440, 459) || code == 1071) return write_number<std::int32_t>();
        if (in(160, 169)) return write_number<std::int64_t>();
        if (in(10, 59) || in(110, 149) || in(210, 239) || in(460, 469) || in(1010, 1059))
            return write_number<double>();
        if (in(310, 319) || code == 1004) return skip_chunk();
        return write_text();
    }

    bool write_group() {
        int code = 0;
        if (!take_code(code)) return false;
        const std::size_t before = text_.size();
        (text_ += std::to_string(code)) += '\n';
        if (!write_value(code)) {
            text_.resize(before);
            return false;
        }
        text_ += '\n';
        return true;
    }

    std::string_view rest_;
    bool wide_codes_ = false;
    std::string text_;
};

/// Blanks count in what people have written.
bool is_written_text(int code) noexcept {
    return code == 1 || code == 3 || code == 304;
}

std::string_view without_return(std::string_view line) noexcept {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

bool next_line(std::string_view& rest, std::string_view& line) noexcept {
    if (rest.empty()) return false;
    const std::size_t end = rest.find('\n');
    line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return true;
}

}  // namespace

int integer_of(const Tag& tag) noexcept {
    int number = 0;
    if (parse(tag.value, number)) return number;
    const double value = number_of(tag);  // some programs write 1.0
    return std::abs(value) < std::numeric_limits<int>::max() ? static_cast<int>(value) : 0;
}

double number_of(const Tag& tag) noexcept {
    double number = not_a_number;
    return parse(tag.value, number) ? number : not_a_number;
}

const Tag* Tags::find(int code) const noexcept {
    const auto found = std::ranges::find(*this, code, &Tag::code);
    return found == end() ? nullptr : &*found;
}

int Tags::integer(int code, int otherwise) const noexcept {
    const Tag* const tag = find(code);
    return tag == nullptr ? otherwise : integer_of(*tag);
}

double Tags::number(int code, double otherwise) const noexcept {
    const Tag* const tag = find(code);
    return tag == nullptr ? otherwise : number_of(*tag);
}

std::string_view Tags::text(int code, std::string_view otherwise) const noexcept {
    const Tag* const tag = find(code);
    return tag == nullptr ? otherwise : tag->value;
}

Point Tags::point(int code, Point otherwise) const noexcept {
    return {number(code, otherwise.x), number(code + 10, otherwise.y), number(code + 20, otherwise.z)};
}

Tags Tags::subclass(std::string_view marker) const noexcept {
    constexpr int subclass_code = 100;
    const auto is_marker = [](const Tag& tag) { return tag.code == subclass_code; };
    const auto first =
        std::ranges::find_if(*this, [&](const Tag& tag) { return is_marker(tag) && tag.value == marker; });
    if (first == end()) return *this;
    return std::span(first + 1, std::find_if(first + 1, end(), is_marker));
}

TagFile::TagFile(std::string bytes) : bytes_(std::move(bytes)) {
    if (bytes_.starts_with(binary_start)) bytes_ = BinaryReader(bytes_).text();
    std::string_view rest = bytes_;
    if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
    // Some programs end lines with a carriage return alone.
    if (rest.find('\n') == std::string_view::npos) std::ranges::replace(bytes_, '\r', '\n');
    std::string_view code_line;
    std::string_view value;
    while (next_line(rest, code_line) && next_line(rest, value)) {
        Tag tag{.code = 0, .value = trimmed(value)};
        if (!parse(trimmed(code_line), tag.code)) {
            if (tags_.empty()) throw Unreadable("does not begin as one");
            throw Unreadable("is damaged: line " +
                             std::to_string(1 + std::ranges::count(bytes_.data(), code_line.data(), '\n')) +
                             " should hold the code of a group and does not");
        }
        if (is_written_text(tag.code)) tag.value = without_return(value);
        tags_.push_back(tag);
        if (tag.code == 0 && tag.value == "EOF") break;
    }
    const bool begins_well =
        std::ranges::any_of(tags().first(std::min<std::size_t>(tags_.size(), 200)),
                            [](const Tag& tag) { return tag.code == 0 && tag.value == "SECTION"; });
    if (!begins_well) throw Unreadable("does not begin as one");
}

}  // namespace foliant::hosts::autocad
