#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace foliant::hosts::autocad {

/// A point or a direction in space.
struct Point {
    double x = 0;
    double y = 0;
    double z = 0;

    friend Point operator+(Point a, Point b) noexcept { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Point operator-(Point a, Point b) noexcept { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Point operator*(Point a, double factor) noexcept {
        return {a.x * factor, a.y * factor, a.z * factor};
    }
    friend bool operator==(const Point&, const Point&) = default;
};

inline double dot(Point a, Point b) noexcept {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Point cross(Point a, Point b) noexcept {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(Point a) noexcept {
    return std::sqrt(dot(a, a));
}

/// The direction with length 1; `otherwise` where there is none.
inline Point direction(Point a, Point otherwise = {0, 0, 1}) noexcept {
    const double size = length(a);
    return size > 0 && std::isfinite(size) ? a * (1 / size) : otherwise;
}

inline bool is_finite(Point a) noexcept {
    return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}

inline double radians(double degrees) noexcept {
    return degrees * std::numbers::pi / 180;
}

/// An affine transformation: where the axes' ends and the origin go to.
struct Matrix {
    Point x{1, 0, 0};
    Point y{0, 1, 0};
    Point z{0, 0, 1};
    Point origin{};

    Point vector(Point v) const noexcept { return x * v.x + y * v.y + z * v.z; }
    Point operator()(Point p) const noexcept { return vector(p) + origin; }

    /// First `b`, then `a`.
    friend Matrix operator*(const Matrix& a, const Matrix& b) noexcept {
        return {a.vector(b.x), a.vector(b.y), a.vector(b.z), a(b.origin)};
    }

    /// How much larger what lies in the plane becomes, on the average.
    double scale() const noexcept { return std::sqrt(std::abs(x.x * y.y - x.y * y.x)); }

    static Matrix translation(Point to) noexcept { return {.origin = to}; }
    static Matrix scaling(double x, double y, double z) noexcept {
        return {{x, 0, 0}, {0, y, 0}, {0, 0, z}, {}};
    }
    static Matrix rotation(double angle) noexcept {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        return {{c, s, 0}, {-s, c, 0}, {0, 0, 1}, {}};
    }
    /// From the coordinates in which an object with that direction of extrusion has its points.
    static Matrix of_object(Point extrusion) noexcept {
        const Point normal = direction(extrusion);
        // The arbitrary axis: which of the world's axes is near is decided by this number.
        constexpr double near = 1.0 / 64;
        const bool is_near = std::abs(normal.x) < near && std::abs(normal.y) < near;
        const Point right = direction(cross(is_near ? Point{0, 1, 0} : Point{0, 0, 1}, normal), {1, 0, 0});
        return {right, cross(normal, right), normal, {}};
    }
};

/// A rectangle that grows with what it is to hold.
struct Box {
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();

    bool is_empty() const noexcept { return left > right || bottom > top; }
    double width() const noexcept { return right - left; }
    double height() const noexcept { return top - bottom; }

    void add(Point p) noexcept {
        left = std::min(left, p.x);
        right = std::max(right, p.x);
        bottom = std::min(bottom, p.y);
        top = std::max(top, p.y);
    }
    bool touches(const Box& other) const noexcept {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
    bool holds(const Box& other) const noexcept {
        return left <= other.left && other.right <= right && bottom <= other.bottom && other.top <= top;
    }
};

}  // namespace foliant::hosts::autocad
