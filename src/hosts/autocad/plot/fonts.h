#pragma once

#include <cairo.h>
#include <map>
#include <memory>
#include <pango/pango.h>
#include <string>
#include <string_view>

#include "hosts/autocad/drawing/drawing.h"
#include "hosts/autocad/plot/canvas.h"

namespace foliant::hosts::autocad {

struct Release {
    template <typename Kind>
    void operator()(Kind* object) const noexcept {
        g_object_unref(object);
    }
};

/// The font of the system that is nearest to a style's. AutoCAD's own stroke fonts (.shx) become sans-serif,
/// serif or fixed ones by their names.
Font font_of(const TextStyle& style);

/// Lines of text in the fonts of the system. Capitals have height 1; the line begins on the origin.
class Fonts {
  public:
    Fonts();
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    /// How far a line goes; the height of its highest letter and the depth of its deepest, which is negative.
    struct Extent {
        double advance = 0;
        double top = 1;
        double bottom = 0;
    };
    Extent measure(const std::string& utf8, const Font& font);

    /// Shows it at the current point of transformation, as text that can be searched for.
    void show(cairo_t* cairo, const std::string& utf8, const Font& font);

  private:
    struct Face {
        std::shared_ptr<PangoFontDescription> description;
        double unit = 1;  ///< Pango's units for the height of a capital
    };

    const Face& face(const Font& font);
    PangoLayoutLine* line(const std::string& utf8, const Face& face);

    std::unique_ptr<PangoFontMap, Release> map_;
    std::unique_ptr<PangoContext, Release> context_;
    std::unique_ptr<PangoLayout, Release> layout_;
    std::map<Font, Face> faces_;
};

}  // namespace foliant::hosts::autocad
