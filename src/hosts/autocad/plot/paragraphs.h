#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/autocad/plot/painter.h"

namespace foliant::hosts::autocad {

/// How a piece of a text looks.
struct TextLook {
    Font font;
    double height = 1;   ///< of capitals, in units of the drawing
    double width = 1;    ///< of the letters, where 1 is the font's own
    double oblique = 0;  ///< degrees to the right
    std::optional<Colour> colour{};
    bool is_underlined = false;
    bool is_overlined = false;
    bool is_struck = false;

    friend bool operator==(const TextLook&, const TextLook&) = default;
};

/// A piece of a line with one look; or two that stand above each other.
struct TextPiece {
    TextLook look;
    std::string text;
    std::optional<std::string> below{};  ///< then `text` is above
    bool has_bar = false;                ///< between the two
    double width = 0;                    ///< in units of the drawing
};

enum class TextSide { left, centre, right };

/// What a writer has ended with a new line.
struct Paragraph {
    std::vector<TextPiece> pieces;
    std::optional<TextSide> side{};
};

/// A line of text, cut where percent signs switch how it looks.
std::vector<TextPiece> pieces_of(const std::string& decoded, TextLook look);

/// Takes the codes of a text of several paragraphs apart; `decoded` is UTF-8.
std::vector<Paragraph> parse_paragraphs(const std::string& decoded, const TextLook& usual);

/// Where a text of several paragraphs goes. What `place` does to the origin is the point that it is attached
/// at.
struct ParagraphFrame {
    Matrix place;      ///< from an upright plane in units of the drawing
    double width = 0;  ///< at which lines are broken; 0: nowhere
    TextSide side = TextSide::left;
    double share_above = 1;    ///< of the text's height that is below the origin: 1 from the top, 0.5 ...
    double spacing = 5.0 / 3;  ///< from line to line, in heights of the letters
    bool has_background = false;
};

void draw_paragraphs(Painter& painter, std::vector<Paragraph> paragraphs, const TextLook& usual,
                     const ParagraphFrame& frame, const Ink& ink, const Context& context);

/// Draws a piece that begins at a place of an upright plane, `place` being what the plane is put on paper by.
void draw_piece(Painter& painter, const TextPiece& piece, Point at, const Matrix& place, const Ink& ink);

}  // namespace foliant::hosts::autocad
