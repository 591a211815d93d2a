#include <array>
#include <utility>

#include "hosts/autocad/plot/entities.h"
#include "hosts/autocad/plot/polyline.h"

namespace foliant::hosts::autocad {
namespace {

constexpr double whole_turn = 2 * std::numbers::pi;

bool has_bit(int flags, unsigned bit) {
    return (static_cast<unsigned>(flags) & bit) != 0;
}

/// Where an arc ends that runs to the left from `from`.
double end_after(double from, double to) {
    double angle = std::fmod(to - from, whole_turn);
    constexpr double nothing = 1e-12;
    if (angle <= nothing) angle += whole_turn;
    return from + angle;
}

std::vector<double> numbers(Tags tags, int code) {
    std::vector<double> result;
    for (const Tag& tag : tags)
        if (tag.code == code) result.push_back(number_of(tag));
    return result;
}

/// A mesh has lines from each vertex to the next in both directions.
void paint_mesh(Painter& painter, const Entity& entity, const Context& context) {
    const int flags = entity.tags.integer(70);
    const auto rows = static_cast<std::size_t>(std::max(0, entity.tags.integer(71)));
    const auto columns = static_cast<std::size_t>(std::max(0, entity.tags.integer(72)));
    const auto& parts = entity.parts;
    if (rows < 2 || columns < 2 || rows > parts.size() || columns > parts.size() ||
        parts.size() < rows * columns)
        return;
    Path path;
    const auto line = [&](std::size_t begin, std::size_t step, std::size_t vertices, bool is_closed) {
        for (std::size_t i = 0; i < vertices; ++i) {
            const Point p = parts[begin + i * step].tags.point(10);
            i == 0 ? path.move_to(p) : path.line_to(p);
        }
        if (is_closed) path.close();
    };
    for (std::size_t row = 0; row < rows; ++row)
        line(row * columns, 1, columns, has_bit(flags, 32));
    for (std::size_t column = 0; column < columns; ++column)
        line(column, columns, rows, has_bit(flags, 1));
    painter.stroke(path, painter.ink_of(entity, context), context);
}

/// Faces name the vertices before them, from 1; a negative number begins an edge that is not drawn.
void paint_faces(Painter& painter, const Entity& entity, const Context& context) {
    constexpr unsigned is_place = 64;
    std::vector<Point> places;
    Path path;
    for (const Entity& part : entity.parts) {
        if (has_bit(part.tags.integer(70), is_place)) {
            places.push_back(part.tags.point(10));
            continue;
        }
        std::vector<int> corners;
        for (const int code : {71, 72, 73, 74})
            if (const int corner = part.tags.integer(code); corner != 0) corners.push_back(corner);
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const auto from = static_cast<std::size_t>(std::abs(corners[i])) - 1;
            const auto to = static_cast<std::size_t>(std::abs(corners[(i + 1) % corners.size()])) - 1;
            if (corners[i] < 0 || from >= places.size() || to >= places.size()) continue;
            path.move_to(places[from]);
            path.line_to(places[to]);
        }
    }
    painter.stroke(path, painter.ink_of(entity, context), context);
}

}  // namespace

void paint_line(Painter& painter, const Entity& entity, const Context& context) {
    Path path;
    path.move_to(entity.tags.point(10));
    path.line_to(entity.tags.point(11));
    painter.stroke(path, painter.ink_of(entity, context), context);
}

void paint_endless_line(Painter& painter, const Entity& entity, const Context& context) {
    if (painter.canvas().only_measures()) return;
    const Point base = entity.tags.point(10);
    const Point along = direction(entity.tags.point(11), {1, 0, 0});
    constexpr double beyond_all_paper = 40'000;  // points
    const double reach = beyond_all_paper / std::max(context.place.scale(), 1e-9);
    Path path;
    path.move_to(entity.type == "RAY" ? base : base - along * reach);
    path.line_to(base + along * reach);
    painter.stroke(path, painter.ink_of(entity, context), context);
}

void paint_arc(Painter& painter, const Entity& entity, const Context& context) {
    const double radius = entity.tags.number(40);
    const bool is_arc = entity.type == "ARC";
    const double from = is_arc ? radians(entity.tags.number(50)) : 0;
    const double to = is_arc ? end_after(from, radians(entity.tags.number(51))) : whole_turn;
    Path path;
    path.add_arc(entity.tags.point(10), {radius, 0, 0}, {0, radius, 0}, from, to);
    if (!is_arc) path.close();
    painter.stroke(path, painter.ink_of(entity, context), in_object(context, entity));
}

void paint_ellipse(Painter& painter, const Entity& entity, const Context& context) {
    const Point major = entity.tags.point(11);
    const Point normal = direction(entity.tags.point(210, {0, 0, 1}));
    const Point minor = cross(normal, major) * entity.tags.number(40, 1);
    const double from = entity.tags.number(41, 0);
    const double to = end_after(from, entity.tags.number(42, whole_turn));
    Path path;
    path.add_arc(entity.tags.point(10), major, minor, from, to);
    painter.stroke(path, painter.ink_of(entity, context), context);
}

void paint_spline(Painter& painter, const Entity& entity, const Context& context) {
    const Tags tags = entity.tags.subclass("AcDbSpline");
    constexpr unsigned closed = 1;
    Spline spline{.degree = tags.integer(71, 3), .knots = numbers(tags, 40), .weights = numbers(tags, 41)};
    spline.controls = points_of(tags, 10);
    Path path = spline.path();
    if (path.is_empty()) path = curve_through(points_of(tags, 11), has_bit(tags.integer(70), closed));
    painter.stroke(path, painter.ink_of(entity, context), context);
}

void paint_light_polyline(Painter& painter, const Entity& entity, const Context& context) {
    Polyline line;
    line.is_closed = has_bit(entity.tags.integer(70), 1);
    const double height = entity.tags.number(38);
    const double width = entity.tags.number(43);
    for (const Tag& tag : entity.tags) {
        if (tag.code == 10) {
            line.vertices.push_back(
                {.place = {number_of(tag), 0, height}, .from_width = width, .to_width = width});
            continue;
        }
        if (line.vertices.empty()) continue;
        Vertex& last = line.vertices.back();
        if (tag.code == 20) last.place.y = number_of(tag);
        if (tag.code == 40) last.from_width = number_of(tag);
        if (tag.code == 41) last.to_width = number_of(tag);
        if (tag.code == 42) last.bulge = number_of(tag);
    }
    draw(painter, line, painter.ink_of(entity, context), in_object(context, entity));
}

void paint_polyline(Painter& painter, const Entity& entity, const Context& context) {
    constexpr unsigned closed = 1;
    constexpr unsigned in_space = 8;
    constexpr unsigned mesh = 16;
    constexpr unsigned faces = 64;
    constexpr unsigned is_frame = 16;  // of a curve that the other vertices are on
    const int flags = entity.tags.integer(70);
    if (has_bit(flags, mesh)) return paint_mesh(painter, entity, context);
    if (has_bit(flags, faces)) return paint_faces(painter, entity, context);
    Polyline line;
    line.is_closed = has_bit(flags, closed);
    const double from_width = entity.tags.number(40);
    const double to_width = entity.tags.number(41);
    const double height = entity.tags.number(30);
    for (const Entity& part : entity.parts) {
        if (has_bit(part.tags.integer(70), is_frame)) continue;
        Vertex vertex{.place = part.tags.point(10),
                      .bulge = part.tags.number(42),
                      .from_width = part.tags.number(40, from_width),
                      .to_width = part.tags.number(41, to_width)};
        if (!has_bit(flags, in_space)) vertex.place.z = height;
        line.vertices.push_back(vertex);
    }
    const Context& place = has_bit(flags, in_space) ? context : in_object(context, entity);
    draw(painter, line, painter.ink_of(entity, context), place);
}

void paint_multiple_line(Painter& painter, const Entity& entity, const Context& context) {
    constexpr unsigned closed = 2;
    std::vector<std::vector<Point>> elements;  // of each vertex
    Point vertex;
    Point miter;
    for (std::size_t i = 0; i < entity.tags.size(); ++i) {
        const Tag& tag = entity.tags[i];
        const auto point = [&] { return Tags(entity.tags.subspan(i)).point(tag.code); };
        if (tag.code == 11) vertex = point(), elements.emplace_back();
        if (tag.code == 13) miter = point();
        // Of the numbers of an element, the first is its distance along the miter.
        if (tag.code == 74 && integer_of(tag) > 0 && !elements.empty())
            elements.back().push_back(vertex + miter * Tags(entity.tags.subspan(i)).number(41));
    }
    if (elements.empty()) return;
    Path path;
    for (std::size_t element = 0; element < elements.front().size(); ++element) {
        bool is_first = true;
        for (const auto& places : elements) {
            if (element >= places.size()) continue;
            std::exchange(is_first, false) ? path.move_to(places[element]) : path.line_to(places[element]);
        }
        if (has_bit(entity.tags.integer(71), closed)) path.close();
    }
    painter.stroke(path, painter.ink_of(entity, context), context);
}

void paint_point(Painter& painter, const Entity& entity, const Context& context) {
    const int mode = static_cast<int>(painter.drawing().variable("$PDMODE", 0));
    const Point centre = entity.tags.point(10);
    constexpr double usual_size = 4;  // points
    double half = painter.drawing().variable("$PDSIZE", 0) / 2;
    if (!(half > 0))
        half = painter.canvas().only_measures() ? 0 : usual_size / 2 / std::max(context.place.scale(), 1e-12);
    Path path;
    const auto line = [&](double x, double y, double to_x, double to_y) {
        path.move_to(centre + Point{x * half, y * half, 0});
        path.line_to(centre + Point{to_x * half, to_y * half, 0});
    };
    switch (mode % 32) {
        case 0:
            line(0, 0, 0, 0);
            break;
        case 2:
            line(-2, 0, 2, 0), line(0, -2, 0, 2);
            break;
        case 3:
            line(-2, -2, 2, 2), line(-2, 2, 2, -2);
            break;
        case 4:
            line(0, 0, 0, 1);
            break;
        default:
            break;
    }
    if (has_bit(mode, 32)) path.add_arc(centre, {half, 0, 0}, {0, half, 0}, 0, whole_turn);
    if (has_bit(mode, 64)) line(-1, -1, 1, -1), line(1, -1, 1, 1), line(1, 1, -1, 1), line(-1, 1, -1, -1);
    if (path.is_empty()) return;
    Ink ink = painter.ink_of(entity, context);
    ink.dashes.clear();
    painter.stroke(path, ink, context);
}

void paint_solid(Painter& painter, const Entity& entity, const Context& context) {
    const Tags& tags = entity.tags;
    const Point third = tags.point(12);
    const std::array corners{tags.point(10), tags.point(11), tags.point(13, third), third};
    Path path;
    path.add_polygon(corners);
    painter.fill(path, painter.fill_of(entity, context), in_object(context, entity));
}

void paint_face(Painter& painter, const Entity& entity, const Context& context) {
    const Tags& tags = entity.tags;
    const Point third = tags.point(12);
    const std::array corners{tags.point(10), tags.point(11), third, tags.point(13, third)};
    const int hidden = tags.integer(70);
    Path path;
    for (unsigned i = 0; i < corners.size(); ++i) {
        const Point to = corners[(i + 1) % corners.size()];
        if (has_bit(hidden, 1U << i) || corners[i] == to) continue;
        path.move_to(corners[i]);
        path.line_to(to);
    }
    painter.stroke(path, painter.ink_of(entity, context), context);
}

}  // namespace foliant::hosts::autocad
