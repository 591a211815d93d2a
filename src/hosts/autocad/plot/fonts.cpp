#include "hosts/autocad/plot/fonts.h"

#include <algorithm>
#include <array>
#include <pango/pangocairo.h>
#include <utility>

namespace foliant::hosts::autocad {
namespace {

constexpr const char* sans = "Liberation Sans";
constexpr const char* serif = "Liberation Serif";
constexpr const char* fixed = "Liberation Mono";

/// Files of fonts that come with Windows and AutoCAD, by how their names begin.
constexpr std::array<std::pair<std::string_view, const char*>, 22> families{{
    {"arialn", "Arial Narrow"},   {"arial", "Arial"},
    {"times", "Times New Roman"}, {"cour", "Courier New"},
    {"calibri", "Calibri"},       {"verdana", "Verdana"},
    {"tahoma", "Tahoma"},         {"georgia", "Georgia"},
    {"cambria", "Cambria"},       {"consola", "Consolas"},
    {"comic", "Comic Sans MS"},   {"trebuc", "Trebuchet MS"},
    {"simsun", "SimSun"},         {"simhei", "SimHei"},
    {"msgothic", "MS Gothic"},    {"msmincho", "MS Mincho"},
    {"gulim", "Gulim"},           {"batang", "Batang"},
    {"symbol", "Symbol"},         {"seguisym", "Segoe UI Symbol"},
    {"swiss", "Arial"},           {"dutch", "Times New Roman"},
}};

const char* stroke_font(std::string_view name) {
    if (name.starts_with("mono")) return fixed;
    // romans and scripts are drawn with a single line, and look like a sans-serif font.
    for (const std::string_view start :
         {"romanc", "romand", "romant", "italicc", "italict", "complex", "gothic"})
        if (name.starts_with(start)) return serif;
    return sans;
}

}  // namespace

Font font_of(const TextStyle& style) {
    std::string name = folded(style.font);
    if (const std::size_t folder = name.find_last_of("/\\"); folder != std::string::npos)
        name.erase(0, folder + 1);
    const std::size_t dot = name.rfind('.');
    const std::string_view ending = dot == std::string::npos ? "" : std::string_view(name).substr(dot);
    if (name.empty() || name == "txt" || ending == ".shx") {
        const bool is_slanted = name.starts_with("italic") || name.starts_with("script");
        return {stroke_font(name), style.is_bold, style.is_italic || is_slanted};
    }
    if (ending != ".ttf" && ending != ".ttc" && ending != ".otf" && ending != ".pfb")
        return {style.font, style.is_bold, style.is_italic};
    const std::string_view stem = std::string_view(name).substr(0, dot);
    const auto known =
        std::ranges::find_if(families, [&](const auto& family) { return stem.starts_with(family.first); });
    if (known == families.end()) return {std::string(stem), style.is_bold, style.is_italic};
    const std::string_view variant = stem.substr(known->first.size());
    const bool is_bold = variant == "b" || variant == "bd" || variant == "bi" || variant == "z";
    const bool is_italic = variant == "i" || variant == "bi" || variant == "z";
    return {known->second, style.is_bold || is_bold, style.is_italic || is_italic};
}

Fonts::Fonts() : map_(pango_cairo_font_map_new()) {
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map_.get()), 72);
    context_.reset(pango_font_map_create_context(map_.get()));
    // Nothing is fitted to the dots of a screen.
    const std::unique_ptr<cairo_font_options_t, decltype(&cairo_font_options_destroy)> options(
        cairo_font_options_create(), cairo_font_options_destroy);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context_.get(), options.get());
    pango_context_set_round_glyph_positions(context_.get(), FALSE);
    layout_.reset(pango_layout_new(context_.get()));
    pango_layout_set_single_paragraph_mode(layout_.get(), TRUE);
}

PangoLayoutLine* Fonts::line(const std::string& utf8, const Face& face) {
    pango_layout_set_font_description(layout_.get(), face.description.get());
    pango_layout_set_text(layout_.get(), utf8.data(), static_cast<int>(utf8.size()));
    return pango_layout_get_line_readonly(layout_.get(), 0);
}

const Fonts::Face& Fonts::face(const Font& font) {
    const auto known = faces_.find(font);
    if (known != faces_.end()) return known->second;
    Face face;
    face.description.reset(pango_font_description_new(), pango_font_description_free);
    pango_font_description_set_family(face.description.get(), font.family.c_str());
    pango_font_description_set_absolute_size(face.description.get(), 100.0 * PANGO_SCALE);
    if (font.is_bold) pango_font_description_set_weight(face.description.get(), PANGO_WEIGHT_BOLD);
    if (font.is_italic) pango_font_description_set_style(face.description.get(), PANGO_STYLE_ITALIC);
    PangoRectangle ink;
    pango_layout_line_get_extents(line("H", face), &ink, nullptr);
    face.unit = ink.height > 0 ? ink.height : 70.0 * PANGO_SCALE;
    return faces_.emplace(font, std::move(face)).first->second;
}

Fonts::Extent Fonts::measure(const std::string& utf8, const Font& font) {
    const Face& used = face(font);
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_line_get_extents(line(utf8, used), &ink, &logical);
    return {logical.width / used.unit, -ink.y / used.unit, -(ink.y + ink.height) / used.unit};
}

void Fonts::show(cairo_t* cairo, const std::string& utf8, const Font& font) {
    const Face& used = face(font);
    PangoLayoutLine* const shown = line(utf8, used);
    const double size = PANGO_SCALE / used.unit;
    cairo_scale(cairo, size, size);
    cairo_move_to(cairo, 0, 0);
    pango_cairo_show_layout_line(cairo, shown);
}

}  // namespace foliant::hosts::autocad
