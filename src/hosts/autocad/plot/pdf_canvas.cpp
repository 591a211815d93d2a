#include "hosts/autocad/plot/pdf_canvas.h"

#include <cairo-pdf.h>
#include <stdexcept>

namespace foliant::hosts::autocad {
namespace {

/// Beyond this the library that writes the file cannot count; pages are far smaller.
constexpr double far_away = 100'000;
constexpr Box countable{-far_away, -far_away, far_away, far_away};

cairo_status_t append(void* file, const unsigned char* bytes, unsigned length) noexcept {
    try {
        static_cast<std::string*>(file)->append(reinterpret_cast<const char*>(bytes), length);
        return CAIRO_STATUS_SUCCESS;
    } catch (...) {
        return CAIRO_STATUS_NO_MEMORY;
    }
}

cairo_t* new_page(std::string& file, double width, double height, const std::string& title) {
    cairo_surface_t* const surface = cairo_pdf_surface_create_for_stream(append, &file, width, height);
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, title.c_str());
    cairo_t* const cairo = cairo_create(surface);
    cairo_surface_destroy(surface);  // the other one holds it
    cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_EVEN_ODD);
    return cairo;
}

/// The part of a line inside of a box; whether there is any.
bool cut_line(Point& a, Point& b, const Box& box) {
    const Point way = b - a;
    double from = 0;
    double to = 1;
    const auto cut = [&](double speed, double room) {
        if (speed == 0) return room >= 0;
        const double at = room / speed;
        if (speed < 0)
            from = std::max(from, at);
        else
            to = std::min(to, at);
        return from <= to;
    };
    if (!cut(-way.x, a.x - box.left) || !cut(way.x, box.right - a.x) || !cut(-way.y, a.y - box.bottom) ||
        !cut(way.y, box.top - a.y))
        return false;
    b = a + way * to;
    a = a + way * from;
    return true;
}

/// The part of an area on the inner side of a line: where `inside` is not negative.
template <typename Distance>
std::vector<Point> cut_area(const std::vector<Point>& corners, Distance inside) {
    std::vector<Point> kept;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point a = corners[i];
        const Point b = corners[(i + 1) % corners.size()];
        const double from = inside(a);
        const double to = inside(b);
        if (from >= 0) kept.push_back(a);
        if ((from >= 0) != (to >= 0)) kept.push_back(a + (b - a) * (from / (from - to)));
    }
    return kept;
}

}  // namespace

PdfCanvas::PdfCanvas(Fonts& fonts, double width, double height, const std::string& title)
    : fonts_(fonts),
      cairo_(new_page(file_, width, height, title), cairo_destroy),
      visible_{{0, 0, width, height}} {}

std::string PdfCanvas::finish() {
    cairo_show_page(cairo_.get());
    cairo_surface_finish(cairo_get_target(cairo_.get()));
    const cairo_status_t status = cairo_status(cairo_.get());
    if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
    return std::move(file_);
}

void PdfCanvas::put(const Path& path) {
    auto point = path.points().begin();
    for (const Path::Step step : path.steps()) {
        switch (step) {
            case Path::Step::move:
                cairo_move_to(cairo_.get(), point->x, point->y);
                ++point;
                break;
            case Path::Step::line:
                cairo_line_to(cairo_.get(), point->x, point->y);
                ++point;
                break;
            case Path::Step::curve:
                cairo_curve_to(cairo_.get(), point[0].x, point[0].y, point[1].x, point[1].y, point[2].x,
                               point[2].y);
                point += 3;
                break;
            case Path::Step::close:
                cairo_close_path(cairo_.get());
                break;
        }
    }
}

// Where a path goes too far, curves of such a size need many lines to look round.
constexpr int lines_per_huge_curve = 2000;

void PdfCanvas::put_lines(const Path& path) {
    for (auto& line : path.flattened(lines_per_huge_curve)) {
        if (line.is_closed) line.points.push_back(line.points.front());
        for (std::size_t i = 1; i < line.points.size(); ++i) {
            Point a = line.points[i - 1];
            Point b = line.points[i];
            if (!cut_line(a, b, countable)) continue;
            cairo_move_to(cairo_.get(), a.x, a.y);
            cairo_line_to(cairo_.get(), b.x, b.y);
        }
    }
}

void PdfCanvas::put_areas(const Path& path) {
    for (const auto& line : path.flattened(lines_per_huge_curve)) {
        auto corners = cut_area(line.points, [](Point p) { return p.x - countable.left; });
        corners = cut_area(corners, [](Point p) { return countable.right - p.x; });
        corners = cut_area(corners, [](Point p) { return p.y - countable.bottom; });
        corners = cut_area(corners, [](Point p) { return countable.top - p.y; });
        if (corners.empty()) continue;
        cairo_new_sub_path(cairo_.get());
        for (const Point corner : corners)
            cairo_line_to(cairo_.get(), corner.x, corner.y);
        cairo_close_path(cairo_.get());
    }
}

void PdfCanvas::use(const Ink& ink) {
    const Colour& colour = ink.colour;
    if (ink.opacity < 1)
        cairo_set_source_rgba(cairo_.get(), colour.red, colour.green, colour.blue, ink.opacity);
    else
        cairo_set_source_rgb(cairo_.get(), colour.red, colour.green, colour.blue);
}

void PdfCanvas::stroke(const Path& path, const Ink& ink) {
    if (path.is_empty() || !path.is_finite()) return;
    Box box = path.bounds();
    const double around = ink.width;
    box = {box.left - around, box.bottom - around, box.right + around, box.top + around};
    if (!shows(box)) return;
    use(ink);
    cairo_set_line_width(cairo_.get(), ink.width);
    const bool is_flat = ink.is_flat || !ink.dashes.empty();
    cairo_set_line_cap(cairo_.get(), is_flat ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cairo_.get(), ink.is_flat ? CAIRO_LINE_JOIN_MITER : CAIRO_LINE_JOIN_ROUND);
    cairo_set_dash(cairo_.get(), ink.dashes.data(), static_cast<int>(ink.dashes.size()), 0);
    if (countable.holds(box))
        put(path);
    else
        put_lines(path);
    cairo_stroke(cairo_.get());
}

void PdfCanvas::fill(const Path& path, const Ink& ink) {
    if (path.is_empty() || !path.is_finite()) return;
    const Box box = path.bounds();
    if (!shows(box)) return;
    use(ink);
    if (countable.holds(box))
        put(path);
    else
        put_areas(path);
    cairo_fill(cairo_.get());
}

void PdfCanvas::text(const std::string& utf8, const Font& font, const Matrix& place, const Ink& ink) {
    const Fonts::Extent extent = fonts_.measure(utf8, font);
    Path frame;
    for (const double x : {0.0, extent.advance})
        for (const double y : {extent.bottom, extent.top})
            frame.line_to(place({x, y, 0}));
    constexpr double invisible = 1e-6;
    if (!frame.is_finite() || !(place.scale() > invisible)) return;
    if (!shows(frame.bounds()) || !countable.holds(frame.bounds())) return;
    cairo_save(cairo_.get());
    use(ink);
    const cairo_matrix_t matrix{place.x.x, place.x.y, -place.y.x, -place.y.y, place.origin.x, place.origin.y};
    cairo_set_matrix(cairo_.get(), &matrix);
    fonts_.show(cairo_.get(), utf8, font);
    cairo_restore(cairo_.get());
    cairo_new_path(cairo_.get());
}

void PdfCanvas::clip(const Path& path) {
    cairo_save(cairo_.get());
    const Box& before = visible_.back();
    const Box box = path.bounds();
    visible_.push_back({std::max(before.left, box.left), std::max(before.bottom, box.bottom),
                        std::min(before.right, box.right), std::min(before.top, box.top)});
    if (countable.holds(box))
        put(path);
    else
        put_areas(path);
    cairo_clip(cairo_.get());
}

void PdfCanvas::unclip() {
    visible_.pop_back();
    cairo_restore(cairo_.get());
}

}  // namespace foliant::hosts::autocad
