#pragma once

#include <memory>
#include <pango/pango.h>
#include <string_view>

namespace foliant::hosts::pages {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using LayoutPtr = std::unique_ptr<PangoLayout, Unref>;
using ContextPtr = std::unique_ptr<PangoContext, Unref>;
using FontPtr = std::unique_ptr<PangoFont, Unref>;

struct FontDescriptionFree {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
using FontDescriptionPtr = std::unique_ptr<PangoFontDescription, FontDescriptionFree>;

/// Where texts are laid out for paper, in points: letters as they are designed, and where they belong. A page is no
/// screen.
ContextPtr make_paper_context();

/// Lengths in Pango's units as points.
inline double points(int pango_units) {
    return static_cast<double>(pango_units) / PANGO_SCALE;
}

/// A part of a line, UTF-8, as long as Pango lays out at once: what that takes grows with the square of the length.
std::string_view beginning_of(std::string_view line);

}  // namespace foliant::hosts::pages
