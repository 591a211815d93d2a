#include "hosts/office/excel/header_text.h"

#include <algorithm>
#include <charconv>

#include "automation/text.h"
#include "hosts/office/excel/excel_error.h"

namespace foliant::hosts::office {

namespace {

constexpr double line_spacing = 1.2;  // of the font's size

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Goes through a text with codes, collecting pieces.
class HeaderReader {
  public:
    explicit HeaderReader(std::string_view text) : text_(text) {}

    std::vector<HeaderPiece> read() {
        while (!text_.empty()) {
            const char character = take();
            if (character == '&' && !text_.empty())
                read_code();
            else if (character != '\r')
                add_text(character);
        }
        return std::move(pieces_);
    }

  private:
    char take() {
        const char character = text_.front();
        text_.remove_prefix(1);
        return character;
    }

    void add_text(char character) {
        const bool goes_on = !pieces_.empty() && pieces_.back().kind == HeaderPiece::Kind::text &&
                             pieces_.back().style == style_;
        if (!goes_on) pieces_.push_back({HeaderPiece::Kind::text, "", style_});
        pieces_.back().text += character;
    }

    void add(HeaderPiece::Kind kind) { pieces_.push_back({kind, "", style_}); }

    void read_code() {
        if (is_digit(text_.front())) return read_size();
        const char code = lower(take());
        if (code == '&') return add_text('&');
        if (code == '"') return read_font();
        if (code == 'k') return read_color();
        if (!read_field(code)) read_style(code);
    }

    bool read_field(char code) {
        using enum HeaderPiece::Kind;
        switch (code) {
            case 'p':
                refuse_offset();
                add(page);
                return true;
            case 'n':
                add(pages);
                return true;
            case 'd':
                add(date);
                return true;
            case 't':
                add(time);
                return true;
            case 'a':
                add(sheet);
                return true;
            case 'f':
                add(file);
                return true;
            case 'z':
                add(folder);
                return true;
            default:
                return false;
        }
    }

    void read_style(char code) {
        const auto turn = [](bool& flag) { flag = !flag; };
        switch (code) {
            case 'b':
                return turn(style_.bold);
            case 'i':
                return turn(style_.italic);
            case 'u':
                return turn(style_.underlined);
            case 'e':
                return turn(style_.double_underlined);
            case 's':
                return turn(style_.struck);
            case 'x':
                return turn(style_.superscript);
            case 'y':
                return turn(style_.subscript);
            default:
                return;
        }
    }

    void read_size() {
        const std::string_view digits = text_.substr(0, text_.find_first_not_of("0123456789"));
        int size = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), size);
        text_.remove_prefix(digits.size());
        constexpr int largest = 409;  // as Excel's font sizes go
        if (size > 0) style_.size = std::min(size, largest);
    }

    /// "Arial,Bold Italic"; "-" leaves the font as it is.
    void read_font() {
        const std::size_t end = std::min(text_.find('"'), text_.size());
        const std::string_view named = text_.substr(0, end);
        text_.remove_prefix(std::min(end + 1, text_.size()));
        const std::size_t comma = std::min(named.find(','), named.size());
        const std::string_view font = automation::trim_blanks(named.substr(0, comma));
        if (!font.empty() && font != "-") style_.font = std::string(font);
        if (comma == named.size()) return;
        std::string look(named.substr(comma + 1));
        std::ranges::transform(look, look.begin(), lower);
        style_.bold = look.find("bold") != std::string::npos;
        style_.italic = look.find("italic") != std::string::npos || look.find("oblique") != std::string::npos;
    }

    /// Six hexadecimal digits. A colour of the workbook's theme ("K01+000") stays the usual one.
    void read_color() {
        constexpr std::size_t digits = 6;
        std::uint32_t color = 0;
        const std::string_view value = text_.substr(0, digits);
        const auto [end, status] = std::from_chars(value.data(), value.data() + value.size(), color, 16);
        if (status == std::errc() && end == value.data() + digits) style_.color = color;
        text_.remove_prefix(value.size());
    }

    void refuse_offset() const {
        if (text_.size() < 2 || (text_[0] != '+' && text_[0] != '-') || !is_digit(text_[1])) return;
        throw excel_error("A page number counted from elsewhere (\"&P" + std::string(text_.substr(0, 2)) +
                          "\") cannot be printed here. Give the number of the first page instead.");
    }

    std::string_view text_;
    PieceStyle style_;
    std::vector<HeaderPiece> pieces_;
};

}  // namespace

std::vector<HeaderPiece> parse_header(std::string_view text) {
    return HeaderReader(text).read();
}

std::vector<HeaderSection> sections_of(std::string_view text) {
    std::vector<HeaderSection> sections(1);
    while (!text.empty()) {
        std::size_t length = text.front() == '&' ? std::min<std::size_t>(text.size(), 2) : 1;
        const char code = length == 2 ? lower(text[1]) : '\0';
        if (code == 'l' || code == 'c' || code == 'r') {
            sections.push_back({code, ""});
        } else {
            if (code == '"') length = std::min(text.find('"', length), text.size() - 1) + 1;
            sections.back().text += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return sections;
}

double height_of(const std::vector<HeaderPiece>& pieces, double usual_size) {
    double lines_above = 0;
    double line = usual_size;  // a line is as high as the usual text at least
    for (const HeaderPiece& piece : pieces) {
        const double size = std::max(piece.style.size.value_or(usual_size), usual_size);
        // The first part of the text stands on the line that has begun, each further one begins one.
        line = piece.text.starts_with('\n') ? line : std::max(line, size);
        for (const char character : piece.text) {
            if (character != '\n') continue;
            lines_above += line;
            line = piece.text.ends_with('\n') ? usual_size : size;
        }
    }
    return (lines_above + line) * line_spacing;
}

}  // namespace foliant::hosts::office
