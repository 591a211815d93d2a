#include "hosts/pages/paper_context.h"

#include <pango/pangocairo.h>

namespace foliant::hosts::pages {

ContextPtr make_paper_context() {
    constexpr double points_an_inch = 72;
    ContextPtr context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    pango_cairo_context_set_resolution(context.get(), points_an_inch);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    return context;
}

}  // namespace foliant::hosts::pages
