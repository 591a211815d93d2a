#include <array>

#include "hosts/autocad/plot/entities.h"
#include "hosts/autocad/plot/paragraphs.h"
#include "hosts/autocad/plot/polyline.h"

namespace foliant::hosts::autocad {
namespace {

constexpr int deepest = 64;  // blocks in blocks; more are blocks that contain themselves

/// What a block takes from the reference to it.
Context inside(const Painter& painter, const Entity& entity, const Context& context) {
    Context inner = context;
    inner.layer = &painter.layer_of(entity, context);
    const Ink ink = painter.ink_of(entity, context);
    inner.colour = painter.fill_of(entity, context).colour;
    inner.opacity = ink.opacity;
    inner.weight = entity.tags.integer(370, weight_by_layer);
    if (inner.weight == weight_by_layer) inner.weight = inner.layer->weight;
    if (inner.weight == weight_by_block) inner.weight = context.weight;
    const std::string linetype = folded(entity.tags.text(6, "bylayer"));
    if (linetype != "byblock")
        inner.linetype = painter.drawing().linetype(linetype == "bylayer" ? inner.layer->linetype : linetype);
    ++inner.depth;
    return inner;
}

double factor(Tags tags, int code) {
    const double value = tags.number(code, 1);
    return value != 0 && std::isfinite(value) ? value : 1;
}

void draw_arrow(Painter& painter, Point tip, Point from, double size, const Ink& ink,
                const Context& context) {
    const Point along = direction(from - tip, {1, 0, 0}) * size;
    const Point across = Point{-along.y, along.x, 0} * (1.0 / 6);
    Path head;
    head.add_polygon(std::array{tip, tip + along + across, tip + along - across});
    painter.fill(head, ink, context);
}

void draw_leader_line(Painter& painter, const std::vector<Point>& points, double arrow, bool is_curved,
                      const Ink& ink, const Context& context) {
    if (points.size() < 2) return;
    Path line;
    if (is_curved && points.size() > 2)
        line = curve_through(points, false);
    else
        for (const Point p : points)
            line.line_to(p);
    painter.stroke(line, ink, context);
    if (arrow > 0 && arrow * 1.5 < length(points[1] - points[0]) * 2)
        draw_arrow(painter, points[0], points[1], arrow, ink, context);
}

}  // namespace

void paint_reference(Painter& painter, const Entity& entity, const Context& context) {
    const Tags& tags = entity.tags;
    const Block* const block = painter.drawing().block(tags.text(2));
    if (block != nullptr && !block->is_external && context.depth < deepest) {
        const auto count = [&](int code) {
            return static_cast<std::uint64_t>(std::max(1, tags.integer(code)));
        };
        const bool is_table = entity.type == "ACAD_TABLE";
        const std::uint64_t columns = is_table ? 1 : count(70);
        const std::uint64_t rows = is_table ? 1 : count(71);
        painter.spend(columns * rows);
        Context inner = inside(painter, entity, context);
        const Matrix place = in_object(context, entity).place * Matrix::translation(tags.point(10)) *
                             Matrix::rotation(radians(tags.number(50)));
        const Matrix size = Matrix::scaling(factor(tags, 41), factor(tags, 42), factor(tags, 43)) *
                            Matrix::translation(block->base * -1);
        for (std::uint64_t row = 0; row < rows; ++row)
            for (std::uint64_t column = 0; column < columns; ++column) {
                const Point cell{columns > 1 ? tags.number(44) * static_cast<double>(column) : 0,
                                 rows > 1 ? tags.number(45) * static_cast<double>(row) : 0, 0};
                inner.place = place * Matrix::translation(cell) * size;
                painter.paint(block->entities, inner);
            }
    }
    painter.paint(entity.parts, context);
}

void paint_dimension(Painter& painter, const Entity& entity, const Context& context) {
    const Block* const block = painter.drawing().block(entity.tags.text(2));
    if (block == nullptr || context.depth >= deepest) return;
    Context inner = inside(painter, entity, context);
    // A copy of a dimension has its place here, and the picture of the first one.
    const Point shift = entity.tags.point(12);
    inner.place = context.place * Matrix::translation(shift - block->base);
    painter.paint(block->entities, inner);
}

void paint_leader(Painter& painter, const Entity& entity, const Context& context) {
    const Drawing& drawing = painter.drawing();
    const double arrow = drawing.variable("$DIMASZ", 2.5) * std::max(drawing.variable("$DIMSCALE", 1), 0.001);
    const bool has_arrow = entity.tags.integer(71, 1) != 0;
    draw_leader_line(painter, points_of(entity.tags, 10), has_arrow ? arrow : 0, entity.tags.integer(72) == 1,
                     painter.ink_of(entity, context), context);
}

void paint_multiple_leader(Painter& painter, const Entity& entity, const Context& context) {
    const Ink ink = painter.ink_of(entity, context);
    const Tags& tags = entity.tags;
    double arrow = 0;
    double height = 1;
    Point end;  // of the leader that is read
    bool is_in_line = false;
    std::vector<Point> line;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const Tag& tag = tags[i];
        const auto point = [&] { return Tags(tags.subspan(i)).point(tag.code); };
        if (tag.code == 140 && arrow == 0) arrow = number_of(tag);
        if (tag.code == 41 && height == 1) height = number_of(tag);
        if (tag.code == 302) end = Tags(tags.subspan(i)).point(10);
        if (tag.code == 304 && tag.value == "LEADER_LINE{") {
            is_in_line = true;
            line.clear();
        } else if (tag.code == 305 && is_in_line) {
            is_in_line = false;
            line.push_back(end);
            draw_leader_line(painter, line, arrow, false, ink, context);
        } else if (tag.code == 10 && is_in_line) {
            line.push_back(point());
        } else if (tag.code == 304) {
            TextLook look{.font = font_of(painter.drawing().style("standard")),
                          .height = height > 0 ? height : 1};
            const Tags after(tags.subspan(i));
            ParagraphFrame frame;
            frame.place = Matrix::translation(after.point(12)) * Matrix::rotation(after.number(42));
            frame.width = std::max(0.0, after.number(43));
            frame.side = static_cast<TextSide>(std::clamp(after.integer(171, 1), 1, 3) - 1);
            draw_paragraphs(painter, parse_paragraphs(painter.drawing().text(tag.value), look), look, frame,
                            ink, context);
        }
    }
}

void paint_picture_frame(Painter& painter, const Entity& entity, const Context& context) {
    const Tags& tags = entity.tags;
    const Point corner = tags.point(10);
    const Point right = tags.point(11) * tags.number(13);
    const Point up = tags.point(12) * tags.number(23);
    Path frame;
    frame.add_polygon(std::array{corner, corner + right, corner + right + up, corner + up});
    painter.stroke(frame, painter.ink_of(entity, context), context);
}

void paint_wipeout(Painter& painter, const Entity& entity, const Context& context) {
    const Tags& tags = entity.tags;
    const Point corner = tags.point(10);
    std::vector<Point> places = points_of(tags, 14);
    if (places.size() == 2) {
        const Point a = places[0];
        const Point b = places[1];
        places = {a, {b.x, a.y, 0}, b, {a.x, b.y, 0}};
    }
    for (Point& place : places)
        place = corner + tags.point(11) * (place.x + 0.5) + tags.point(12) * (0.5 - place.y);
    Path area;
    area.add_polygon(places);
    painter.fill(area, {.colour = {1, 1, 1}}, context);
}

}  // namespace foliant::hosts::autocad
