#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "hosts/autocad/geometry/geometry.h"

namespace foliant::hosts::autocad {

/// Lines and curves, in space until they are put on paper.
class Path {
  public:
    enum class Step : std::uint8_t { move, line, curve, close };

    void move_to(Point p);
    /// Begins the path where there is none yet.
    void line_to(Point p);
    void curve_to(Point a, Point b, Point end);
    void close();

    /// centre + x cos t + y sin t, for t from `from` to `to`, which may be the smaller one. Goes on from where
    /// the path is, with a line when that is elsewhere, if `continues`.
    void add_arc(Point centre, Point x, Point y, double from, double to, bool continues = false);
    /// To `end` by an arc in the plane of x and y: `bulge` is the tangent of a quarter of its angle.
    void bulge_to(Point end, double bulge);
    void add_polygon(std::span<const Point> corners);

    bool is_empty() const noexcept { return steps_.empty(); }
    bool is_finite() const noexcept;
    std::size_t size() const noexcept { return points_.size(); }
    const std::vector<Step>& steps() const noexcept { return steps_; }
    /// One for a move or line, three for a curve, none for a close.
    const std::vector<Point>& points() const noexcept { return points_; }

    void transform(const Matrix& matrix) noexcept;
    /// Of all points, those that only bend curves included.
    Box bounds() const noexcept;
    /// Each piece as a polyline, and whether it is closed; curves are cut into as many lines.
    struct Polyline {
        std::vector<Point> points;
        bool is_closed = false;
    };
    std::vector<Polyline> flattened(int lines_per_curve) const;

  private:
    std::vector<Step> steps_;
    std::vector<Point> points_;
};

/// A curve of NURBS as a path of lines: `weights` may be empty. What is no such curve gives an empty path.
struct Spline {
    int degree = 3;
    std::vector<double> knots{};
    std::vector<Point> controls{};
    std::vector<double> weights{};

    Path path(bool is_closed = false) const;
};

/// A smooth curve through points, for splines that are known by those only.
Path curve_through(std::span<const Point> points, bool is_closed);

}  // namespace foliant::hosts::autocad
