#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/autocad/drawing/tags.h"
#include "hosts/autocad/drawing/text_codes.h"
#include "hosts/autocad/geometry/geometry.h"

namespace foliant::hosts::autocad {

/// Something that is drawn: a line, a text, a reference to a block ...
struct Entity {
    std::string_view type;
    Tags tags;
    std::vector<Entity> parts;  ///< vertices of a polyline, attributes of a reference to a block
};

/// As entities and layers have it: hundredths of a millimetre, or what the constants say.
using LineWeight = int;
inline constexpr LineWeight weight_by_layer = -1;
inline constexpr LineWeight weight_by_block = -2;
inline constexpr LineWeight usual_weight = -3;

struct Layer {
    int colour = 7;
    std::optional<std::uint32_t> true_colour;
    std::string linetype;
    LineWeight weight = usual_weight;
    bool is_shown = true;    ///< neither off, nor frozen, nor for the screen only
    bool is_frozen = false;  ///< with all that is drawn by way of a block, too
    std::string_view handle;
};

/// Dashes are positive, gaps negative, points 0; in units of the drawing. Nothing for a line without gaps.
using Linetype = std::vector<double>;

struct TextStyle {
    std::string font;  ///< a file ("txt.shx", "arial.ttf") or a family
    bool is_bold = false;
    bool is_italic = false;
};

struct Block {
    Point base;
    std::vector<Entity> entities;
    bool is_external = false;  ///< another drawing, which is never opened
};

/// How a layout is to be plotted; lengths on paper in millimetres.
struct PlotSettings {
    enum class Area { display, extents, limits, view, window, layout };

    double width = 0;  ///< of the paper before it is turned; 0 when nothing is said
    double height = 0;
    double left = 0;  ///< margins, up to which a plotter can draw
    double bottom = 0;
    double right = 0;
    double top = 0;
    int quarter_turns = 0;  ///< of the drawing on the paper, to the left
    Area area = Area::display;
    Box window;
    Point offset;  ///< of the plot from the margins' corner
    bool is_centred = false;
    bool is_in_inches = false;    ///< what a unit on paper is
    std::optional<double> scale;  ///< units on paper for one of the drawing; nothing: as large as fits
};

struct Layout {
    std::string name;
    bool is_model = false;
    int tab = 0;
    PlotSettings plot{};
    Box limits{};
    const Block* content = nullptr;  ///< never null in a drawing's list
};

using NameSet = std::set<std::string>;

/// A drawing as its DXF file has it. It is not changed once it was read.
class Drawing {
  public:
    /// `layers_off` has the names, as `folded` gives them, of the layers that are off, where the DXF does not
    /// tell it right. Throws Unreadable.
    explicit Drawing(std::string dxf, std::optional<NameSet> layers_off = std::nullopt);
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    /// The model first, then the layouts by the order of their tabs. There is always a model.
    const std::vector<Layout>& layouts() const noexcept { return layouts_; }

    // What is not defined under a name is as if it were usual.
    const Layer& layer(std::string_view name) const;
    const Linetype& linetype(std::string_view name) const;
    const TextStyle& style(std::string_view name) const;
    /// nullptr when there is none of that name.
    const Block* block(std::string_view name) const;

    /// A variable of the drawing, such as "$LTSCALE".
    double variable(std::string_view name, double otherwise) const;

    std::string text(std::string_view raw) const { return decoder_(raw); }

  private:
    void read();
    void read_variables(Tags tags);
    void read_table_entry(std::string_view type, Tags tags);
    void read_layer(Tags tags);
    void read_style(Tags tags);
    void read_block_part(std::string_view type, Tags tags);
    void read_layout(Tags tags);
    void add_entity(std::string_view type, Tags tags, Block& block);
    void settle_layouts();
    Block& space(bool is_paper);

    TagFile file_;
    std::optional<NameSet> layers_off_;
    TextDecoder decoder_;
    std::map<std::string_view, Tags, std::less<>> variables_;
    std::unordered_map<std::string, Layer> layers_;
    std::unordered_map<std::string, Linetype> linetypes_;
    std::unordered_map<std::string, TextStyle> styles_;
    std::unordered_map<std::string, Block> blocks_;
    std::unordered_map<std::string_view, std::string> block_names_;  ///< by the handles of their records
    Block* open_block_ = nullptr;
    std::vector<Layout> layouts_;
    std::vector<std::string> layout_blocks_;  ///< names, for each of layouts_
};

}  // namespace foliant::hosts::autocad
