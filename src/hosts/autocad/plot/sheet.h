#pragma once

#include "hosts/autocad/drawing/drawing.h"
#include "hosts/autocad/geometry/geometry.h"

namespace foliant::hosts::autocad {

/// A page, and where on it the drawing is.
struct Sheet {
    double width = 0;  ///< points
    double height = 0;
    Matrix place;  ///< from the layout's coordinates to points from the left and the top
};

/// The page that a layout is plotted on: its own paper; A4 or Letter where it has none. A sheet is to scale. The
/// model is, too, where its settings ask for a scale at which all of it fits; else it is as large as fits.
/// `extents` are those of what is drawn, not empty.
Sheet sheet_for(const Drawing& drawing, const Layout& layout, const Box& extents);

}  // namespace foliant::hosts::autocad
