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

std::string_view beginning_of(std::string_view line) {
    constexpr std::size_t longest = 4096;
    if (line.size() <= longest) return line;
    std::size_t end = longest;
    while (end > longest / 2 && (static_cast<unsigned char>(line[end]) & 0xC0U) == 0x80U)
        --end;
    return line.substr(0, end);
}

}  // namespace foliant::hosts::pages
