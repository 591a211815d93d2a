#pragma once

#include <vector>

#include "hosts/autocad/plot/painter.h"

namespace foliant::hosts::autocad {

struct Vertex {
    Point place;
    double bulge = 0;       ///< of the piece that begins here
    double from_width = 0;  ///< in units of the drawing; 0 for a line with a weight
    double to_width = 0;
};

struct Polyline {
    std::vector<Vertex> vertices;
    bool is_closed = false;
};

/// Draws it with the widths of its pieces.
void draw(Painter& painter, const Polyline& line, const Ink& ink, const Context& context);

/// All points with that code.
std::vector<Point> points_of(Tags tags, int code);

}  // namespace foliant::hosts::autocad
