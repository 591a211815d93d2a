#include "hosts/autocad/noting_canvas.h"

#include <cmath>
#include <cstdio>

#include "hosts/autocad/plot/fonts.h"
#include "hosts/autocad/plot/painter.h"

namespace foliant::hosts::autocad::test {
namespace {

std::string number(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.4g", std::abs(value) < 1e-6 ? 0 : value);
    return text;
}

std::string place(Point p) {
    return number(p.x) + "," + number(p.y);
}

/// "0,0 - 5,0 ~ 6,1": a curve is told by where it ends.
std::string outline(const Path& path) {
    std::string text;
    auto point = path.points().begin();
    for (const Path::Step step : path.steps()) {
        if (step == Path::Step::close) {
            text += " closed";
        } else if (step == Path::Step::curve) {
            text += " ~ " + place(point[2]);
            point += 3;
        } else {
            text += (step == Path::Step::line ? " - " : text.empty() ? " " : " / ") + place(*point++);
        }
    }
    return text;
}

std::string differences(const Ink& ink, double usual_width) {
    std::string text;
    if (ink.colour != Colour{})
        text +=
            " rgb " + number(ink.colour.red) + "," + number(ink.colour.green) + "," + number(ink.colour.blue);
    if (std::abs(ink.width - usual_width) > 1e-3) text += " width " + number(ink.width);
    if (ink.opacity < 1) text += " opacity " + number(ink.opacity);
    for (std::size_t i = 0; i < ink.dashes.size(); ++i)
        text += (i == 0 ? " dashes " : ",") + number(ink.dashes[i]);
    return text;
}

constexpr double quarter_millimetre = 0.25 * 72 / 25.4;

}  // namespace

void NotingCanvas::stroke(const Path& path, const Ink& ink) {
    notes.push_back("stroke" + outline(path) + differences(ink, quarter_millimetre));
}

void NotingCanvas::fill(const Path& path, const Ink& ink) {
    notes.push_back("fill" + outline(path) + differences(ink, ink.width));
}

void NotingCanvas::text(const std::string& utf8, const Font& font, const Matrix& at, const Ink& ink) {
    std::string note =
        "text \"" + utf8 + "\" at " + place(at.origin) + " height " + number(std::hypot(at.y.x, at.y.y));
    if (std::abs(at.x.y) > 1e-6 || at.x.x < 0) note += " along " + place(direction(at.x));
    if (font.is_bold) note += " bold";
    if (font.is_italic) note += " italic";
    notes.push_back(note + differences(ink, ink.width));
}

void NotingCanvas::clip(const Path& path) {
    notes.push_back("clip" + outline(path));
}

std::vector<std::string> drawn(const std::string& dxf, const std::string& layout) {
    const Drawing drawing(dxf);
    Fonts fonts;
    NotingCanvas canvas;
    for (const Layout& one : drawing.layouts())
        if (one.name == layout) Painter(drawing, fonts, canvas).paint(one.content->entities, {});
    return canvas.notes;
}

}  // namespace foliant::hosts::autocad::test
