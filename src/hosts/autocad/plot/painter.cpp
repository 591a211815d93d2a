#include "hosts/autocad/plot/painter.h"

#include <unordered_map>
#include <utility>

#include "hosts/autocad/plot/entities.h"

namespace foliant::hosts::autocad {
namespace {

using Paint = void (*)(Painter&, const Entity&, const Context&);

/// What is not here has no lines of its own, or is solid: ACIS bodies, pictures of other programs.
const std::unordered_map<std::string_view, Paint> painters{
    {"LINE", paint_line},
    {"3DLINE", paint_line},
    {"RAY", paint_endless_line},
    {"XLINE", paint_endless_line},
    {"CIRCLE", paint_arc},
    {"ARC", paint_arc},
    {"ELLIPSE", paint_ellipse},
    {"SPLINE", paint_spline},
    {"HELIX", paint_spline},
    {"LWPOLYLINE", paint_light_polyline},
    {"POLYLINE", paint_polyline},
    {"MLINE", paint_multiple_line},
    {"POINT", paint_point},
    {"SOLID", paint_solid},
    {"TRACE", paint_solid},
    {"3DFACE", paint_face},
    {"TEXT", paint_text},
    {"ATTRIB", paint_text},
    {"ATTDEF", paint_attribute_definition},
    {"MTEXT", paint_paragraphs},
    {"TOLERANCE", paint_tolerance},
    {"HATCH", paint_hatch},
    {"MPOLYGON", paint_hatch},
    {"INSERT", paint_reference},
    {"MINSERT", paint_reference},
    {"ACAD_TABLE", paint_reference},
    {"DIMENSION", paint_dimension},
    {"ARC_DIMENSION", paint_dimension},
    {"LARGE_RADIAL_DIMENSION", paint_dimension},
    {"LEADER", paint_leader},
    {"MULTILEADER", paint_multiple_leader},
    {"MLEADER", paint_multiple_leader},
    {"VIEWPORT", paint_viewport},
    {"IMAGE", paint_picture_frame},
    {"WIPEOUT", paint_wipeout},
};

constexpr double points_per_hundredth = 72 / 2540.0;
constexpr double thinnest = 0.15;  // points; thinner ones get lost on paper

double opacity_of(const Entity& entity, const Context& context) {
    constexpr unsigned kinds = 0xFF000000;
    constexpr unsigned is_value = 0x02000000;
    constexpr unsigned is_of_block = 0x01000000;
    const auto code = static_cast<unsigned>(entity.tags.integer(440));
    if ((code & kinds) == is_value) return (code & 0xFFU) / 255.0;
    return (code & kinds) == is_of_block ? context.opacity : 1;
}

LineWeight weight_of(const Entity& entity, const Layer& layer, const Context& context) {
    constexpr LineWeight usual_hundredths = 25;
    LineWeight weight = entity.tags.integer(370, weight_by_layer);
    if (weight == weight_by_layer) weight = layer.weight;
    if (weight == weight_by_block) weight = context.weight;
    return weight < 0 || weight > 500 ? usual_hundredths : weight;
}

}  // namespace

Colour printed_colour(int index, std::optional<std::uint32_t> true_colour, bool is_line) {
    const Colour colour = true_colour ? Colour::of_bytes(*true_colour) : colour_of_index(index);
    constexpr double white = 0.96;
    const bool is_white = colour.red > white && colour.green > white && colour.blue > white;
    return is_line && is_white ? Colour{} : colour;
}

std::vector<double> dashes_on_paper(const Linetype& linetype, double unit, double line_width) {
    constexpr double too_small_to_see = 0.5;  // points
    std::vector<double> dashes;
    double all = 0;
    for (const double item : linetype) {
        const double size = std::abs(item) * unit;
        if (!std::isfinite(size)) return {};
        const bool is_gap = item < 0;
        if (dashes.empty() && is_gap) dashes.push_back(0);
        const double drawn = is_gap ? size : std::max(size, line_width);  // a point is as long as wide
        if ((dashes.size() % 2 == 1) == is_gap)
            dashes.push_back(drawn);
        else
            dashes.back() += drawn;
        all += drawn;
    }
    if (dashes.size() < 2 || all < too_small_to_see) return {};
    if (dashes.size() % 2 == 1) dashes.push_back(0);
    return dashes;
}

Context in_object(const Context& context, const Entity& entity) {
    Context result = context;
    if (entity.tags.has(230) || entity.tags.has(210))
        result.place = context.place * Matrix::of_object(entity.tags.point(210, {0, 0, 1}));
    return result;
}

void Painter::spend(std::uint64_t pieces) {
    constexpr std::uint64_t most = 5'000'000;
    if (pieces > most || (spent_ += pieces) > most)
        throw TooMuch("it holds more than " + std::to_string(most / 1'000'000) +
                      " million things to draw, counting what its blocks repeat");
}

const Layer& Painter::layer_of(const Entity& entity, const Context& context) const {
    const std::string_view name = entity.tags.text(8, "0");
    return name == "0" && context.layer != nullptr ? *context.layer : drawing_.layer(name);
}

Colour Painter::colour_of(const Entity& entity, const Context& context, bool is_line) const {
    if (const Tag* const tag = entity.tags.find(420))
        return printed_colour(0, static_cast<std::uint32_t>(integer_of(*tag)), is_line);
    const int index = entity.tags.integer(62, colour_by_layer);
    if (index == colour_by_block) return context.colour;
    if (index != colour_by_layer) return printed_colour(std::abs(index), {}, is_line);
    const Layer& layer = layer_of(entity, context);
    return printed_colour(layer.colour, layer.true_colour, is_line);
}

Ink Painter::ink_of(const Entity& entity, const Context& context) const {
    const Layer& layer = layer_of(entity, context);
    Ink ink;
    ink.colour = colour_of(entity, context, true);
    ink.opacity = opacity_of(entity, context);
    ink.width = std::max(thinnest, weight_of(entity, layer, context) * points_per_hundredth);
    if (canvas_.only_measures()) return ink;
    std::string name = folded(entity.tags.text(6, "bylayer"));
    if (name == "bylayer") name = layer.linetype;
    const Linetype& linetype = name == "byblock" ? context.linetype : drawing_.linetype(name);
    if (!linetype.empty())
        ink.dashes = dashes_on_paper(
            linetype, context.dash_unit * drawing_.variable("$LTSCALE", 1) * entity.tags.number(48, 1),
            ink.width);
    return ink;
}

Ink Painter::fill_of(const Entity& entity, const Context& context) const {
    Ink ink;
    ink.colour = colour_of(entity, context, false);
    ink.opacity = opacity_of(entity, context);
    return ink;
}

void Painter::stroke(Path path, const Ink& ink, const Context& context) const {
    path.transform(context.place);
    canvas_.stroke(path, ink);
}

void Painter::fill(Path path, const Ink& ink, const Context& context) const {
    path.transform(context.place);
    canvas_.fill(path, ink);
}

void Painter::paint(const std::vector<Entity>& entities, const Context& context) {
    for (const Entity& entity : entities)
        paint(entity, context);
}

void Painter::paint(const Entity& entity, const Context& context) {
    spend(1 + entity.tags.size() / 64);
    const auto painter = painters.find(entity.type);
    if (painter == painters.end() || entity.tags.integer(60) == 1) return;
    const Layer& layer = layer_of(entity, context);
    const bool is_block = painter->second == paint_reference;
    if (is_block ? layer.is_frozen : !layer.is_shown) return;
    if (context.frozen != nullptr) {
        // Older drawings name layers where later ones have handles.
        const std::string_view key = layer.handle.empty() ? entity.tags.text(8) : layer.handle;
        if (context.frozen->contains(key)) return;
    }
    painter->second(*this, entity, context);
}

}  // namespace foliant::hosts::autocad
