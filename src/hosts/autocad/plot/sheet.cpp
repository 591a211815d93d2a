#include "hosts/autocad/plot/sheet.h"

#include <optional>
#include <utility>

namespace foliant::hosts::autocad {
namespace {

constexpr double points_per_millimetre = 72 / 25.4;
constexpr double millimetres_per_inch = 25.4;

/// Paper as it is looked at; millimetres.
struct Paper {
    double width = 0;
    double height = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;

    double usable_width() const { return width - left - right; }
    double usable_height() const { return height - bottom - top; }
};

Paper with_margins(double width, double height, double margin) {
    return {width, height, margin, margin, margin, margin};
}

/// Where nothing is said: what offices have.
Paper usual_paper(const Drawing& drawing) {
    constexpr double margin = 10;
    const bool is_metric = drawing.variable("$MEASUREMENT", 1) != 0;
    return is_metric ? with_margins(210, 297, margin) : with_margins(215.9, 279.4, margin);
}

/// A quarter of a turn to the right, so that a drawing that was turned to the left on it stands upright.
Paper turned(const Paper& paper) {
    return {.width = paper.height,
            .height = paper.width,
            .left = paper.bottom,
            .bottom = paper.right,
            .right = paper.top,
            .top = paper.left};
}

Paper paper_of(const Drawing& drawing, const PlotSettings& plot) {
    if (plot.width == 0 || plot.height == 0) return usual_paper(drawing);
    Paper paper{plot.width, plot.height, plot.left, plot.bottom, plot.right, plot.top};
    if (!(paper.usable_width() > 0) || !(paper.usable_height() > 0))
        paper = with_margins(plot.width, plot.height, 0);
    for (int i = 0; i < plot.quarter_turns; ++i)
        paper = turned(paper);
    return paper;
}

bool is_area(const Box& box) {
    return box.width() > 0 && box.height() > 0;
}

/// What of a layout is to be seen.
Box area_of(const Layout& layout, const Box& extents) {
    const auto chosen = [&](const Box& box) { return is_area(box) && box.touches(extents) ? box : extents; };
    if (layout.plot.area == PlotSettings::Area::window) return chosen(layout.plot.window);
    if (layout.plot.area == PlotSettings::Area::limits) return chosen(layout.limits);
    return extents;
}

double fitting_scale(const Box& area, const Paper& paper) {
    return std::min(paper.usable_width() / area.width(), paper.usable_height() / area.height());
}

/// With room for half a line on each side, whatever the plotter's margins are.
Paper with_room(Paper paper) {
    constexpr double least = 5;
    for (double* margin : {&paper.left, &paper.bottom, &paper.right, &paper.top})
        *margin = std::max(*margin, least);
    return paper.usable_width() > least && paper.usable_height() > least
               ? paper
               : with_margins(paper.width, paper.height, 0);
}

/// Millimetres for a unit of the drawing, and where on the paper its origin is.
Sheet sheet(const Paper& paper, double scale, Point origin) {
    const double size = scale * points_per_millimetre;
    const double height = paper.height * points_per_millimetre;
    Matrix place = Matrix::scaling(size, -size, size);
    place.origin = {origin.x * points_per_millimetre, height - origin.y * points_per_millimetre, 0};
    return {paper.width * points_per_millimetre, height, place};
}

Sheet centred(const Paper& paper, const Box& area, double scale) {
    const Point middle{paper.left + paper.usable_width() / 2, paper.bottom + paper.usable_height() / 2, 0};
    const Point shown{(area.left + area.right) / 2, (area.bottom + area.top) / 2, 0};
    return sheet(paper, scale, middle - shown * scale);
}

/// A single point or a line takes no room: then some of it is given.
Box with_size(Box area) {
    const double least = std::max({area.width(), area.height(), 1e-6}) * 1e-3;
    if (area.width() <= 0 && area.height() <= 0)
        return {area.left - 1, area.bottom - 1, area.right + 1, area.top + 1};
    if (area.width() < least) area.left -= least / 2, area.right += least / 2;
    if (area.height() < least) area.bottom -= least / 2, area.top += least / 2;
    return area;
}

}  // namespace

Sheet sheet_for(const Drawing& drawing, const Layout& layout, const Box& extents) {
    const PlotSettings& plot = layout.plot;
    Paper paper = paper_of(drawing, plot);
    const bool has_paper = plot.width > 0 && plot.height > 0;
    const double unit = plot.is_in_inches ? millimetres_per_inch : 1;
    const Point corner{paper.left + plot.offset.x, paper.bottom + plot.offset.y, 0};
    if (!layout.is_model && has_paper && plot.area == PlotSettings::Area::layout)
        return sheet(paper, plot.scale.value_or(1) * unit, corner);
    const Box area = with_size(area_of(layout, extents));
    if (plot.scale && has_paper) {
        const double scale = *plot.scale * unit;
        if (!layout.is_model && !plot.is_centred)
            return sheet(paper, scale, corner - Point{area.left, area.bottom, 0} * scale);
        if (!layout.is_model || scale <= fitting_scale(area, paper)) return centred(paper, area, scale);
    }
    paper = with_room(paper);
    if (fitting_scale(area, turned(paper)) > fitting_scale(area, paper) * 1.01) paper = turned(paper);
    return centred(paper, area, fitting_scale(area, paper));
}

}  // namespace foliant::hosts::autocad
