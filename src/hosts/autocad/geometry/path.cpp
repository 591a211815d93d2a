#include "hosts/autocad/geometry/path.h"

namespace foliant::hosts::autocad {
namespace {

Point between(Point a, Point b, double share) {
    return a + (b - a) * share;
}

Point on_curve(Point a, Point b, Point c, Point d, double share) {
    const Point ab = between(a, b, share);
    const Point bc = between(b, c, share);
    const Point cd = between(c, d, share);
    return between(between(ab, bc, share), between(bc, cd, share), share);
}

}  // namespace

void Path::move_to(Point p) {
    steps_.push_back(Step::move);
    points_.push_back(p);
}

void Path::line_to(Point p) {
    if (steps_.empty()) return move_to(p);
    steps_.push_back(Step::line);
    points_.push_back(p);
}

void Path::curve_to(Point a, Point b, Point end) {
    if (steps_.empty()) move_to(a);
    steps_.push_back(Step::curve);
    points_.insert(points_.end(), {a, b, end});
}

void Path::close() {
    if (!steps_.empty()) steps_.push_back(Step::close);
}

void Path::add_arc(Point centre, Point x, Point y, double from, double to, bool continues) {
    constexpr double most_turns = 2;
    constexpr double quarter = std::numbers::pi / 2;
    const double angle = std::clamp(to - from, -most_turns * 4 * quarter, most_turns * 4 * quarter);
    const auto at = [&](double t) { return centre + x * std::cos(t) + y * std::sin(t); };
    const auto along = [&](double t) { return y * std::cos(t) - x * std::sin(t); };
    const double same = 1e-9 * (length(centre) + length(x));
    if (!continues)
        move_to(at(from));
    else if (points_.empty() || !(length(points_.back() - at(from)) <= same))
        line_to(at(from));
    if (!std::isfinite(angle)) return line_to({angle, angle, angle});  // nothing that can be drawn
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(angle) / quarter - 1e-9)));
    const double step = angle / pieces;
    const double handle = 4.0 / 3 * std::tan(step / 4);
    for (int i = 0; i < pieces; ++i) {
        const double begin = from + step * i;
        const double end = begin + step;
        curve_to(at(begin) + along(begin) * handle, at(end) - along(end) * handle, at(end));
    }
}

void Path::bulge_to(Point end, double bulge) {
    constexpr double straight = 1e-9;
    if (points_.empty() || !(std::abs(bulge) > straight)) return line_to(end);
    const Point begin = points_.back();
    const Point chord = end - begin;
    // The centre lies on the chord's perpendicular.
    const double away = (1 - bulge * bulge) / (4 * bulge);
    const Point centre{(begin.x + end.x) / 2 - chord.y * away, (begin.y + end.y) / 2 + chord.x * away,
                       begin.z};
    const double radius = std::hypot(begin.x - centre.x, begin.y - centre.y);
    const double from = std::atan2(begin.y - centre.y, begin.x - centre.x);
    add_arc(centre, {radius, 0, 0}, {0, radius, 0}, from, from + 4 * std::atan(bulge), true);
}

void Path::add_polygon(std::span<const Point> corners) {
    if (corners.empty()) return;
    move_to(corners.front());
    for (const Point corner : corners.subspan(1))
        line_to(corner);
    close();
}

bool Path::is_finite() const noexcept {
    // What is not set has this value in many drawings.
    constexpr double nowhere = 1e19;
    return std::ranges::all_of(points_, [](Point p) {
        return std::abs(p.x) < nowhere && std::abs(p.y) < nowhere && std::abs(p.z) < nowhere;
    });
}

void Path::transform(const Matrix& matrix) noexcept {
    for (Point& p : points_)
        p = matrix(p);
}

Box Path::bounds() const noexcept {
    Box box;
    for (const Point p : points_)
        box.add(p);
    return box;
}

std::vector<Path::Polyline> Path::flattened(int lines_per_curve) const {
    std::vector<Polyline> lines;
    auto point = points_.begin();
    for (const Step step : steps_) {
        if (step == Step::close) {
            lines.back().is_closed = true;
        } else if (step == Step::move) {
            lines.push_back({{*point++}});
        } else {
            if (lines.back().is_closed) lines.push_back({{lines.back().points.front()}});
            auto& points = lines.back().points;
            if (step == Step::line) {
                points.push_back(*point++);
                continue;
            }
            const Point begin = points.back();
            for (int i = 1; i <= lines_per_curve; ++i)
                points.push_back(on_curve(begin, point[0], point[1], point[2], double(i) / lines_per_curve));
            point += 3;
        }
    }
    return lines;
}

Path Spline::path(bool is_closed) const {
    constexpr std::size_t most_points = 100'000;
    constexpr int lines_per_span = 16;
    Path path;
    const auto order = static_cast<std::size_t>(degree) + 1;
    const std::size_t count = controls.size();
    if (degree < 1 || degree > 25 || count < order || count > most_points || knots.size() < count + order ||
        (!weights.empty() && weights.size() != count))
        return path;
    struct Weighted {
        Point point;
        double weight;
    };
    std::vector<Weighted> local(order);
    const auto at = [&](std::size_t span, double t) {
        for (std::size_t i = 0; i < order; ++i) {
            const std::size_t place = span - order + 1 + i;
            const double weight = weights.empty() ? 1 : weights[place];
            local[i] = {controls[place] * weight, weight};
        }
        for (std::size_t level = 1; level < order; ++level)
            for (std::size_t i = order - 1; i >= level; --i) {
                const double low = knots[span - order + 1 + i];
                const double high = knots[i + 1 + span - level];
                const double share = high > low ? (t - low) / (high - low) : 0;
                local[i] = {between(local[i - 1].point, local[i].point, share),
                            local[i - 1].weight + (local[i].weight - local[i - 1].weight) * share};
            }
        return local[order - 1].point * (1 / local[order - 1].weight);
    };
    for (std::size_t span = order - 1; span < count; ++span) {
        const double low = knots[span];
        const double high = knots[span + 1];
        if (!(high > low)) continue;
        const int lines = degree == 1 ? 1 : lines_per_span;
        for (int i = path.is_empty() ? 0 : 1; i <= lines; ++i)
            path.line_to(at(span, low + (high - low) * i / lines));
    }
    if (is_closed) path.close();
    return path;
}

Path curve_through(std::span<const Point> points, bool is_closed) {
    Path path;
    const std::size_t count = points.size();
    if (count < 2) return path;
    const auto point = [&](std::ptrdiff_t i) {
        const auto size = static_cast<std::ptrdiff_t>(count);
        if (is_closed) return points[static_cast<std::size_t>((i % size + size) % size)];
        return points[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(i, 0, size - 1))];
    };
    path.move_to(points.front());
    const auto pieces = static_cast<std::ptrdiff_t>(is_closed ? count : count - 1);
    for (std::ptrdiff_t i = 0; i < pieces; ++i) {
        const Point leave = (point(i + 1) - point(i - 1)) * (1.0 / 6);
        const Point arrive = (point(i + 2) - point(i)) * (1.0 / 6);
        path.curve_to(point(i) + leave, point(i + 1) - arrive, point(i + 1));
    }
    if (is_closed) path.close();
    return path;
}

}  // namespace foliant::hosts::autocad
