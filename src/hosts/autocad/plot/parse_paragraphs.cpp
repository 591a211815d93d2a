#include <charconv>

#include "hosts/autocad/plot/paragraphs.h"

namespace foliant::hosts::autocad {
namespace {

double number_in(std::string_view text, double otherwise) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : otherwise;
}

class ParagraphParser {
  public:
    ParagraphParser(std::string_view text, const TextLook& usual)
        : rest_(text), look_(usual), usual_(usual), paragraphs_(1) {}

    std::vector<Paragraph> parse() {
        while (!rest_.empty()) {
            const char letter = take();
            if (letter == '\\' && !rest_.empty())
                read_code(take());
            else if (letter == '{')
                saved_.push_back(look_);
            else if (letter == '}')
                restore();
            else if (letter == '^' && !rest_.empty())
                read_control(take());
            else if (letter == '\n')
                end_paragraph();
            else if (letter == '\t')
                add("    ");
            else if (static_cast<unsigned char>(letter) >= ' ')
                add(std::string_view(&letter, 1));
        }
        flush();
        return std::move(paragraphs_);
    }

  private:
    char take() {
        const char letter = rest_.front();
        rest_.remove_prefix(1);
        return letter;
    }

    /// Up to the semicolon, which goes too.
    std::string_view take_argument() {
        const std::size_t end = std::min(rest_.find(';'), rest_.size());
        const std::string_view argument = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return argument;
    }

    void add(std::string_view text) { current_ += text; }

    void flush() {
        if (current_.empty()) return;
        for (TextPiece& piece : pieces_of(current_, look_))
            paragraphs_.back().pieces.push_back(std::move(piece));
        current_.clear();
    }

    void restore() {
        flush();
        if (saved_.empty()) return;
        look_ = saved_.back();
        saved_.pop_back();
    }

    void end_paragraph() {
        flush();
        const auto side = paragraphs_.back().side;
        paragraphs_.push_back({{}, side});
    }

    /// Texts of older drawings have control characters written out.
    void read_control(char letter) {
        if (letter == 'J')
            end_paragraph();
        else if (letter == 'I')
            add("    ");
        else if (letter == ' ')
            add("^");
        else if (letter != 'M')
            add("^"), rest_ = {rest_.data() - 1, rest_.size() + 1};
    }

    void read_code(char code) {
        switch (code) {
            case 'P':
            case 'X':
            case 'N':
                return end_paragraph();
            case '~':
                return add("\u00A0");
            case '\\':
            case '{':
            case '}':
                return add(std::string_view(&code, 1));
            case 'S':
                return read_stack();
            default:
                break;
        }
        flush();
        switch (code) {
            case 'L':
                look_.is_underlined = true;
                break;
            case 'l':
                look_.is_underlined = false;
                break;
            case 'O':
                look_.is_overlined = true;
                break;
            case 'o':
                look_.is_overlined = false;
                break;
            case 'K':
                look_.is_struck = true;
                break;
            case 'k':
                look_.is_struck = false;
                break;
            case 'f':
            case 'F':
                read_font(take_argument());
                break;
            case 'H':
                read_height(take_argument());
                break;
            case 'W':
                look_.width = std::clamp(number_in(take_argument(), 1), 0.01, 100.0);
                break;
            case 'Q':
                look_.oblique = std::clamp(number_in(take_argument(), 0), -85.0, 85.0);
                break;
            case 'C':
                read_colour(take_argument(), false);
                break;
            case 'c':
                read_colour(take_argument(), true);
                break;
            case 'p':
                read_paragraph(take_argument());
                break;
            case 'A':
            case 'T':
                take_argument();
                break;
            default:
                add("\\"), add(std::string_view(&code, 1));
                break;
        }
    }

    void read_height(std::string_view argument) {
        const bool is_factor = argument.ends_with('x') || argument.ends_with('X');
        const double number = number_in(argument, is_factor ? 1 : look_.height);
        const double height = is_factor ? look_.height * number : number;
        if (height > 0 && height < usual_.height * 1e4) look_.height = height;
    }

    /// Arial|b1|i0|c0|p34
    void read_font(std::string_view argument) {
        const std::size_t end = argument.find('|');
        const auto has = [&](std::string_view what) { return argument.find(what) != std::string_view::npos; };
        const TextStyle style{std::string(argument.substr(0, end)), has("|b1"), has("|i1")};
        if (!style.font.empty()) look_.font = font_of(style);
    }

    void read_colour(std::string_view argument, bool is_true) {
        const auto number =
            static_cast<std::uint32_t>(std::clamp(number_in(argument, colour_by_layer), 0.0, 16777215.0));
        if (is_true) {
            const std::uint32_t rgb = (number & 0xFFU) << 16U | (number & 0xFF00U) | number >> 16U;
            look_.colour = printed_colour(0, rgb, true);
        } else if (number == colour_by_block || number >= colour_by_layer) {
            look_.colour.reset();
        } else {
            look_.colour = printed_colour(static_cast<int>(number), {}, true);
        }
    }

    void read_paragraph(std::string_view argument) {
        const std::size_t side = argument.find('q');
        if (side == std::string_view::npos || side + 1 >= argument.size()) return;
        switch (argument[side + 1]) {
            case 'c':
                paragraphs_.back().side = TextSide::centre;
                break;
            case 'r':
                paragraphs_.back().side = TextSide::right;
                break;
            case 'l':
            case 'j':
                paragraphs_.back().side = TextSide::left;
                break;
            default:
                paragraphs_.back().side.reset();
                break;
        }
    }

    void read_stack() {
        flush();
        std::string above;
        std::string below;
        char divider = '\0';
        while (!rest_.empty()) {
            char letter = take();
            if (letter == ';') break;
            const bool is_divider = letter == '^' || letter == '/' || letter == '#';
            if (letter == '\\' && !rest_.empty())
                letter = take();
            else if (is_divider && divider == '\0') {
                divider = letter;
                continue;
            }
            (divider == '\0' ? above : below) += letter;
        }
        if (below.starts_with(' ')) below.erase(0, 1);
        above = expand_percent_codes(above);
        below = expand_percent_codes(below);
        if (divider == '\0' || divider == '#')
            return add(divider == '\0' ? above : above + "/" + below), flush();
        paragraphs_.back().pieces.push_back({look_, above, below, divider == '/'});
    }

    std::string_view rest_;
    std::string current_;
    TextLook look_;
    const TextLook& usual_;
    std::vector<TextLook> saved_;
    std::vector<Paragraph> paragraphs_;
};

}  // namespace

std::vector<TextPiece> pieces_of(const std::string& decoded, TextLook look) {
    std::vector<std::pair<char, std::size_t>> switches;
    const std::string text =
        expand_percent_codes(decoded, [&](char code, std::size_t at) { switches.emplace_back(code, at); });
    std::vector<TextPiece> pieces;
    std::size_t from = 0;
    const auto end_at = [&](std::size_t end) {
        if (end > from) pieces.push_back({look, text.substr(from, end - from)});
        from = end;
    };
    for (const auto& [code, at] : switches) {
        end_at(at);
        bool& is_on = code == 'u' ? look.is_underlined : (code == 'o' ? look.is_overlined : look.is_struck);
        is_on = !is_on;
    }
    end_at(text.size());
    return pieces;
}

std::vector<Paragraph> parse_paragraphs(const std::string& decoded, const TextLook& usual) {
    return ParagraphParser(decoded, usual).parse();
}

}  // namespace foliant::hosts::autocad
