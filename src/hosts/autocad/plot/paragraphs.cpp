#include "hosts/autocad/plot/paragraphs.h"

#include <utility>

namespace foliant::hosts::autocad {
namespace {

struct Line {
    std::vector<TextPiece> pieces{};
    TextSide side = TextSide::left;
    double height = 0;  ///< of the largest letters
    double width = 0;
};

constexpr double stacked_size = 0.6;  // of what stands above or below
constexpr double stacked_above = 0.55;
constexpr double stacked_below = -0.25;

double width_of(Fonts& fonts, const TextLook& look, const std::string& text) {
    return fonts.measure(text, look.font).advance * look.height * look.width;
}

double width_of(Fonts& fonts, const TextPiece& piece) {
    if (!piece.below) return width_of(fonts, piece.look, piece.text);
    return stacked_size *
           std::max(width_of(fonts, piece.look, piece.text), width_of(fonts, piece.look, *piece.below));
}

/// The first word with the blanks after it.
std::string_view first_word(std::string_view text) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos) return text;
    return text.substr(0, std::min(text.find_first_not_of(' ', blank), text.size()));
}

std::string without_end_blanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

/// Puts pieces into lines that are no wider than is allowed.
class LineBreaker {
  public:
    LineBreaker(Fonts& fonts, double width) : fonts_(fonts), width_(width) {}

    std::vector<Line> lines_of(const Paragraph& paragraph, double usual_height, TextSide side) {
        lines_ = {Line{.side = paragraph.side.value_or(side)}};
        for (const TextPiece& piece : paragraph.pieces)
            piece.below ? add_stack(piece) : add_words(piece);
        for (Line& line : lines_)
            finish(line, usual_height);
        return std::move(lines_);
    }

  private:
    void begin_line() {
        lines_.push_back({.side = lines_.back().side});
        used_ = 0;
    }

    void add_stack(const TextPiece& piece) {
        const double width = width_of(fonts_, piece);
        if (width_ > 0 && used_ > 0 && used_ + width > width_) begin_line();
        lines_.back().pieces.push_back(piece);
        used_ += width;
    }

    void add_words(const TextPiece& piece) {
        if (width_ <= 0) return lines_.back().pieces.push_back(piece);
        TextPiece next{.look = piece.look, .text = {}};
        const auto put = [&] {
            if (!next.text.empty()) lines_.back().pieces.push_back(std::exchange(next, {piece.look, {}}));
        };
        for (std::string_view rest = piece.text; !rest.empty();) {
            const std::string word(first_word(rest));
            rest.remove_prefix(word.size());
            // A little more is let in: fonts of the system are wider than the ones that were thought of.
            constexpr double tolerance = 1.02;
            const double ends_at = used_ + width_of(fonts_, piece.look, without_end_blanks(word));
            if (used_ > 0 && ends_at > width_ * tolerance) {
                put();
                begin_line();
            }
            used_ += width_of(fonts_, piece.look, word);
            next.text += word;
        }
        put();
    }

    void finish(Line& line, double usual_height) {
        for (std::size_t i = 0; i < line.pieces.size(); ++i) {
            TextPiece& piece = line.pieces[i];
            if (i + 1 == line.pieces.size()) piece.text = without_end_blanks(std::move(piece.text));
            piece.width = width_of(fonts_, piece);
            line.width += piece.width;
            line.height = std::max(line.height, piece.look.height);
        }
        if (line.pieces.empty()) line.height = usual_height;
    }

    Fonts& fonts_;
    double width_;
    double used_ = 0;
    std::vector<Line> lines_;
};

/// A line along a piece, at a height that is told in letters.
void draw_rule(Painter& painter, const TextPiece& piece, double height, const Matrix& place, Ink ink) {
    Path rule;
    rule.move_to(place({0, height * piece.look.height, 0}));
    rule.line_to(place({piece.width, height * piece.look.height, 0}));
    ink.dashes.clear();
    ink.width = std::max(0.15, 0.06 * piece.look.height * place.scale());
    painter.canvas().stroke(rule, ink);
}

/// Letters of a look, from an upright plane in units of the drawing.
Matrix letters(const TextLook& look, double size = 1) {
    const double height = look.height * size;
    Matrix matrix = Matrix::scaling(height * look.width, height, 1);
    matrix.y.x = height * std::tan(radians(look.oblique));
    return matrix;
}

}  // namespace

void draw_piece(Painter& painter, const TextPiece& piece, Point at, const Matrix& place, const Ink& ink) {
    const Matrix begin = place * Matrix::translation(at);
    Ink used = ink;
    if (piece.look.colour) used.colour = *piece.look.colour;
    if (piece.text.empty() && !piece.below) return;
    if (!piece.below) {
        painter.canvas().text(piece.text, piece.look.font, begin * letters(piece.look), used);
    } else {
        const auto part = [&](const std::string& text, double height) {
            const Matrix up = Matrix::translation({0, height * piece.look.height, 0});
            if (!text.empty())
                painter.canvas().text(text, piece.look.font, begin * up * letters(piece.look, stacked_size),
                                      used);
        };
        part(piece.text, stacked_above);
        part(*piece.below, stacked_below);
        if (piece.has_bar)
            draw_rule(painter, piece, (stacked_above + stacked_below + stacked_size) / 2, begin, used);
    }
    if (piece.look.is_underlined) draw_rule(painter, piece, -0.2, begin, used);
    if (piece.look.is_overlined) draw_rule(painter, piece, 1.2, begin, used);
    if (piece.look.is_struck) draw_rule(painter, piece, 0.4, begin, used);
}

void draw_paragraphs(Painter& painter, std::vector<Paragraph> paragraphs, const TextLook& usual,
                     const ParagraphFrame& frame, const Ink& ink, const Context& context) {
    std::vector<Line> lines;
    double widest = frame.width;
    for (const Paragraph& paragraph : paragraphs)
        for (Line& line :
             LineBreaker(painter.fonts(), frame.width).lines_of(paragraph, usual.height, frame.side)) {
            widest = std::max(widest, line.width);
            lines.push_back(std::move(line));
        }
    double height = lines.front().height;
    for (std::size_t i = 1; i < lines.size(); ++i)
        height += lines[i].height * frame.spacing;
    const Matrix place = context.place * frame.place;
    const double top = height * frame.share_above;
    const double left = -widest * static_cast<int>(frame.side) / 2;
    if (frame.has_background) {
        const double around = usual.height / 4;
        Path back;
        back.add_polygon(std::vector<Point>{{left - around, top + around, 0},
                                            {left + widest + around, top + around, 0},
                                            {left + widest + around, top - height - around, 0},
                                            {left - around, top - height - around, 0}});
        back.transform(place);
        painter.canvas().fill(back, {.colour = {1, 1, 1}});
    }
    double baseline = top;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        baseline -= line.height * (i == 0 ? 1 : frame.spacing);
        double x = left + (widest - line.width) * static_cast<int>(line.side) / 2;
        for (const TextPiece& piece : line.pieces) {
            draw_piece(painter, piece, {x, baseline, 0}, place, ink);
            x += piece.width;
        }
    }
}

}  // namespace foliant::hosts::autocad
