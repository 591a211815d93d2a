#include <array>

#include "hosts/autocad/plot/entities.h"
#include "hosts/autocad/plot/paragraphs.h"

namespace foliant::hosts::autocad {
namespace {

bool has_bit(int flags, unsigned bit) {
    return (static_cast<unsigned>(flags) & bit) != 0;
}

double usable(double number, double otherwise) {
    return number > 0 && std::isfinite(number) ? number : otherwise;
}

/// How a single line of text stands to the point that it is given.
struct Alignment {
    enum Horizontal { left, centre, right, aligned, middle, fitted };
    int horizontal = left;
    int vertical = 0;  ///< on the baseline, above the lowest letter, in the middle, below the top

    explicit Alignment(const Entity& entity)
        : horizontal(entity.tags.integer(72)),
          vertical(entity.tags.integer(entity.type == "TEXT" ? 73 : 74)) {}

    bool spans() const { return horizontal == aligned || horizontal == fitted; }
    bool has_second_point() const { return horizontal != left || vertical != 0; }
    double share_left() const {
        return horizontal == centre || horizontal == middle ? 0.5 : (horizontal == right ? 1 : 0);
    }
    double height_of_point() const {
        constexpr double depth = -0.3;
        constexpr std::array heights{0.0, depth, 0.5, 1.0};
        if (horizontal == middle) return 0.5;
        return heights[static_cast<std::size_t>(std::clamp(vertical, 0, 3))];
    }
};

TextLook look_of(const Drawing& drawing, Tags tags) {
    TextLook look;
    look.font = font_of(drawing.style(tags.text(7, "standard")));
    look.height = usable(tags.number(40), 1);
    look.width = std::min(usable(tags.number(41, 1), 1), 100.0);
    look.oblique = std::clamp(tags.number(51), -85.0, 85.0);
    if (!std::isfinite(look.oblique)) look.oblique = 0;
    return look;
}

/// A line of text that has been measured.
struct Line {
    std::vector<TextPiece> pieces;
    double width = 0;
    double height = 0;
    double rotation = 0;
};

/// Between two points it is turned, and as wide as they are apart: higher with that or not.
void fit_between(Line& line, const Point& first, const Point& second, bool is_higher) {
    if (line.width <= 0 || first == second) return;
    const double factor = length(second - first) / line.width;
    line.rotation = std::atan2(second.y - first.y, second.x - first.x);
    line.width *= factor;
    if (is_higher) line.height *= factor;
    for (TextPiece& piece : line.pieces) {
        (is_higher ? piece.look.height : piece.look.width) *= factor;
        piece.width *= factor;
    }
}

Line measured_line(Painter& painter, Tags tags, std::string text) {
    const TextLook look = look_of(painter.drawing(), tags);
    std::erase_if(text, [](char byte) { return static_cast<unsigned char>(byte) < ' '; });
    Line line{.pieces = {}, .height = look.height, .rotation = radians(tags.number(50))};
    if (text.find_first_not_of(' ') == std::string::npos) return line;
    line.pieces = pieces_of(text, look);
    for (TextPiece& piece : line.pieces)
        line.width += piece.width =
            painter.fonts().measure(piece.text, look.font).advance * look.height * look.width;
    return line;
}

void draw_line_of_text(Painter& painter, const Entity& entity, const std::string& text,
                       const Context& context) {
    const Tags& tags = entity.tags;
    const Alignment alignment(entity);
    const Point first = tags.point(10);
    const Point second = tags.point(11, first);
    Line line = measured_line(painter, tags, text);
    if (alignment.spans()) fit_between(line, first, second, alignment.horizontal == Alignment::aligned);
    constexpr unsigned backwards = 2;
    constexpr unsigned upside_down = 4;
    const int flags = tags.integer(71);
    const Point point = alignment.has_second_point() && !alignment.spans() ? second : first;
    const Matrix place =
        in_object(context, entity).place * Matrix::translation(point) * Matrix::rotation(line.rotation) *
        Matrix::scaling(has_bit(flags, backwards) ? -1 : 1, has_bit(flags, upside_down) ? -1 : 1, 1);
    Point at{-line.width * alignment.share_left(), -line.height * alignment.height_of_point(), 0};
    const Ink ink = painter.ink_of(entity, context);
    for (const TextPiece& piece : line.pieces) {
        draw_piece(painter, piece, at, place, ink);
        at.x += piece.width;
    }
}

/// The text of a long one is in several groups.
std::string paragraphs_text(const Drawing& drawing, Tags tags) {
    constexpr int piece = 3;
    constexpr int last_piece = 1;
    constexpr int embedded_object = 101;
    std::string raw;
    for (const Tag& tag : tags) {
        if (tag.code == embedded_object) break;
        if (tag.code == piece || tag.code == last_piece) raw += tag.value;
    }
    return drawing.text(raw);
}

}  // namespace

void paint_text(Painter& painter, const Entity& entity, const Context& context) {
    constexpr unsigned invisible = 1;
    const bool is_attribute = entity.type != "TEXT";
    const Tags own = is_attribute ? entity.tags.subclass("AcDbAttribute") : entity.tags;
    if (is_attribute && has_bit(own.integer(70), invisible)) return;
    draw_line_of_text(painter, entity, painter.drawing().text(entity.tags.text(1)), context);
}

void paint_attribute_definition(Painter& painter, const Entity& entity, const Context& context) {
    constexpr unsigned constant = 2;
    const Tags own = entity.tags.subclass("AcDbAttributeDefinition");
    const bool is_constant = has_bit(own.integer(70), constant);
    // In a block it stands for what each reference brings along.
    if (context.depth > 0 && !is_constant) return;
    const std::string_view shown = is_constant ? entity.tags.text(1) : own.text(2);
    draw_line_of_text(painter, entity, painter.drawing().text(shown), context);
}

void paint_paragraphs(Painter& painter, const Entity& entity, const Context& context) {
    const Tags& tags = entity.tags;
    TextLook look;
    look.font = font_of(painter.drawing().style(tags.text(7, "standard")));
    look.height = usable(tags.number(40), 1);
    const Point normal = direction(tags.point(210, {0, 0, 1}));
    const Matrix upright = Matrix::of_object(normal);
    const double rotation = radians(tags.number(50));
    const Point along = tags.has(11) ? direction(tags.point(11), {1, 0, 0})
                                     : upright.vector({std::cos(rotation), std::sin(rotation), 0});
    const int attachment = std::clamp(tags.integer(71, 1), 1, 9) - 1;
    constexpr double usual_spacing = 5.0 / 3;
    ParagraphFrame frame;
    frame.place = {along, cross(normal, along), normal, tags.point(10)};
    frame.width = usable(tags.number(41), 0);
    frame.side = static_cast<TextSide>(attachment % 3);
    const int line = attachment / 3;  // above, middle, below
    frame.share_above = line / 2.0;
    frame.spacing = usual_spacing * std::clamp(usable(tags.number(44, 1), 1), 0.25, 4.0);
    frame.has_background = has_bit(tags.integer(90), 3);
    draw_paragraphs(painter, parse_paragraphs(paragraphs_text(painter.drawing(), tags), look), look, frame,
                    painter.ink_of(entity, context), context);
}

void paint_tolerance(Painter& painter, const Entity& entity, const Context& context) {
    TextLook look;
    look.font = font_of(painter.drawing().style("standard"));
    look.height = usable(
        painter.drawing().variable("$DIMTXT", 2.5) * usable(painter.drawing().variable("$DIMSCALE", 1), 1),
        1);
    std::string text = painter.drawing().text(entity.tags.text(1));
    // Between the boxes of a frame.
    for (std::size_t at = text.find("%%v"); at != std::string::npos; at = text.find("%%v"))
        text.replace(at, 3, " | ");
    ParagraphFrame frame;
    frame.place = Matrix::translation(entity.tags.point(10));
    frame.share_above = 0.5;
    draw_paragraphs(painter, parse_paragraphs(text, look), look, frame, painter.ink_of(entity, context),
                    context);
}

}  // namespace foliant::hosts::autocad
