#include "hosts/autocad/plot/polyline.h"

#include <array>

namespace foliant::hosts::autocad {
namespace {

Path outline(const Polyline& line) {
    Path path;
    const auto& vertices = line.vertices;
    path.move_to(vertices.front().place);
    for (std::size_t i = 1; i < vertices.size(); ++i)
        path.bulge_to(vertices[i].place, vertices[i - 1].bulge);
    if (line.is_closed) {
        if (vertices.back().bulge != 0) path.bulge_to(vertices.front().place, vertices.back().bulge);
        path.close();
    }
    return path;
}

/// A piece whose width changes, as a band around its line.
void draw_band(Painter& painter, const Vertex& from, Point to, const Ink& ink, const Context& context) {
    Path piece;
    piece.move_to(from.place);
    piece.bulge_to(to, from.bulge);
    constexpr int lines_per_curve = 12;
    const std::vector<Point> line = piece.flattened(lines_per_curve).front().points;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Point along = direction(line[i] - line[i - 1], {1, 0, 0});
        const Point across{-along.y, along.x, 0};
        const auto half = [&](std::size_t place) {
            const double share = static_cast<double>(place) / static_cast<double>(line.size() - 1);
            return across * ((from.from_width + (from.to_width - from.from_width) * share) / 2);
        };
        const std::array corners{line[i - 1] + half(i - 1), line[i] + half(i), line[i] - half(i),
                                 line[i - 1] - half(i - 1)};
        Path band;
        band.add_polygon(corners);
        painter.fill(band, ink, context);
    }
}

}  // namespace

void draw(Painter& painter, const Polyline& line, const Ink& ink, const Context& context) {
    const auto& vertices = line.vertices;
    if (vertices.empty()) return;
    painter.spend(vertices.size() / 16);
    const double width = vertices.front().from_width;
    const bool is_even = std::ranges::all_of(vertices, [width](const Vertex& vertex) {
        return vertex.from_width == width && vertex.to_width == width;
    });
    if (is_even) {
        Ink used = ink;
        if (width > 0) {
            used.width = std::max(width * context.place.scale(), 0.01);
            used.is_flat = true;
        }
        return painter.stroke(outline(line), used, context);
    }
    const std::size_t pieces = vertices.size() - (line.is_closed ? 0 : 1);
    for (std::size_t i = 0; i < pieces; ++i) {
        const Vertex& from = vertices[i];
        const Vertex& to = vertices[(i + 1) % vertices.size()];
        if (from.from_width > 0 || from.to_width > 0) {
            draw_band(painter, from, to.place, ink, context);
        } else {
            Path piece;
            piece.move_to(from.place);
            piece.bulge_to(to.place, from.bulge);
            painter.stroke(piece, ink, context);
        }
    }
}

std::vector<Point> points_of(Tags tags, int code) {
    std::vector<Point> points;
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (tags[i].code == code) points.push_back(Tags(tags.subspan(i)).point(code));
    return points;
}

}  // namespace foliant::hosts::autocad
