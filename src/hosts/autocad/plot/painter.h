#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "hosts/autocad/drawing/drawing.h"
#include "hosts/autocad/plot/canvas.h"
#include "hosts/autocad/plot/fonts.h"

namespace foliant::hosts::autocad {

/// More is to be drawn than anybody wants to see: a drawing that was made to keep its readers busy.
class TooMuch : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Where entities are drawn, and how those look that take it from the block in which they are.
struct Context {
    Matrix place;          ///< from the coordinates of the entities to the canvas
    double dash_unit = 1;  ///< points for a unit of a linetype
    const Layer* layer =
        nullptr;  ///< of the reference to the block, for what is on layer 0; null outside of blocks
    Colour colour;
    double opacity = 1;
    LineWeight weight = usual_weight;
    Linetype linetype{};
    const std::set<std::string_view>* frozen = nullptr;  ///< handles of layers that a viewport does not show
    int depth = 0;
};

/// Draws entities on a canvas.
class Painter {
  public:
    Painter(const Drawing& drawing, Fonts& fonts, Canvas& canvas)
        : drawing_(drawing), fonts_(fonts), canvas_(canvas) {}

    /// Throws TooMuch.
    void paint(const std::vector<Entity>& entities, const Context& context);
    void paint(const Entity& entity, const Context& context);

    // For those who draw one kind of entity:

    const Drawing& drawing() const noexcept { return drawing_; }
    Fonts& fonts() const noexcept { return fonts_; }
    Canvas& canvas() const noexcept { return canvas_; }

    const Layer& layer_of(const Entity& entity, const Context& context) const;
    /// How the lines of an entity are drawn.
    Ink ink_of(const Entity& entity, const Context& context) const;
    /// How its areas are: white stays white.
    Ink fill_of(const Entity& entity, const Context& context) const;
    /// Puts on paper and draws what is given in the coordinates of the context.
    void stroke(Path path, const Ink& ink, const Context& context) const;
    void fill(Path path, const Ink& ink, const Context& context) const;

    /// Counts what is drawn. Throws TooMuch.
    void spend(std::uint64_t pieces);

  private:
    Colour colour_of(const Entity& entity, const Context& context, bool is_line) const;

    const Drawing& drawing_;
    Fonts& fonts_;
    Canvas& canvas_;
    std::uint64_t spent_ = 0;
};

/// A layer's colour, or that of an index, or a true one: as it is for areas, black instead of white for lines.
Colour printed_colour(int index, std::optional<std::uint32_t> true_colour, bool is_line);

/// Dashes and gaps in turn as a canvas takes them; none for those too small to be seen.
std::vector<double> dashes_on_paper(const Linetype& linetype, double unit, double line_width);

/// The context of what lies in the objects' own coordinates, as entities with code 210 have it.
Context in_object(const Context& context, const Entity& entity);

}  // namespace foliant::hosts::autocad
