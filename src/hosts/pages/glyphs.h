#pragma once

#include <cstdint>
#include <pango/pango.h>
#include <string>
#include <vector>

namespace foliant::hosts::pages {

/// What is drawn for a letter, or a part of that. Lengths are in points.
struct Glyph {
    unsigned index = 0;    ///< in its font
    double advance = 0;    ///< to the next one
    double right = 0;      ///< how far from its place it is drawn
    double down = 0;       ///< and how far below it
    std::size_t size = 0;  ///< of the letter in the text, in bytes; 0 for all but the first glyph of a letter
};

/// Letters of one font beside each other. The font is that of the shaper which has made the run.
struct GlyphRun {
    PangoFont* font = nullptr;
    std::string text;           ///< UTF-8, in the order in which it is read
    std::vector<Glyph> glyphs;  ///< from left to right
    bool is_backward = false;   ///< whether it is read from right to left
    double left = 0;            ///< where it begins in its line
    double width = 0;
};

/// The runs of a line, from left to right.
using TextLine = std::vector<GlyphRun>;

/// Where text is drawn, page by page. Lengths are in points; on a page, from its left and upper edges.
class Canvas {
  public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    /// Begins a page, also the first one. What was drawn before is on the page before.
    virtual void start_page() = 0;
    /// The colour of what is drawn from now on, up to the end of the page: red * 65536 + green * 256 + blue.
    virtual void set_color(std::uint32_t color) = 0;
    /// Draws letters, the first one there.
    virtual void show(const GlyphRun& run, double left, double baseline) = 0;
    /// Fills an upright area.
    virtual void fill(double left, double top, double width, double height) = 0;
};

}  // namespace foliant::hosts::pages
