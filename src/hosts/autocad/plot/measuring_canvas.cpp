#include "hosts/autocad/plot/measuring_canvas.h"

namespace foliant::hosts::autocad {

/// What is cut off takes no more room than what it is cut to, which was taken already.
void MeasuringCanvas::take(const Path& path) {
    if (clips_ > 0 || !path.is_finite()) return;
    constexpr int lines_per_curve = 8;  // what bends a curve lies outside of it
    for (const auto& line : path.flattened(lines_per_curve))
        for (const Point p : line.points)
            taken_.add(p);
}

void MeasuringCanvas::stroke(const Path& path, const Ink& ink) {
    take(path);
    if (!ink.is_flat || clips_ > 0 || !path.is_finite()) return;
    // A line with a width in units of the drawing.
    const double around = ink.width / 2;
    for (const Point p : path.points()) {
        taken_.add(p + Point{around, around, 0});
        taken_.add(p - Point{around, around, 0});
    }
}

void MeasuringCanvas::fill(const Path& path, const Ink&) {
    take(path);
}

void MeasuringCanvas::text(const std::string& utf8, const Font& font, const Matrix& place, const Ink&) {
    const Fonts::Extent extent = fonts_.measure(utf8, font);
    Path frame;
    for (const double x : {0.0, extent.advance})
        for (const double y : {extent.bottom, extent.top})
            frame.line_to(place({x, y, 0}));
    take(frame);
}

void MeasuringCanvas::clip(const Path& path) {
    take(path);
    ++clips_;
}

void MeasuringCanvas::unclip() {
    --clips_;
}

}  // namespace foliant::hosts::autocad
