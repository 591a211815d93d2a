#include "hosts/autocad/drawing/drawing.h"

#include <algorithm>
#include <utility>

namespace foliant::hosts::autocad {
namespace {

constexpr std::string_view model_space = "*model_space";
constexpr std::string_view paper_space = "*paper_space";

/// Release 12 has other names for the two spaces.
std::string block_key(std::string_view name) {
    std::string key = folded(name);
    if (key == "$model_space") return std::string(model_space);
    if (key == "$paper_space") return std::string(paper_space);
    return key;
}

template <typename Kind>
const Kind& found_or_usual(const std::unordered_map<std::string, Kind>& kinds, std::string_view name) {
    static const Kind usual{};
    const auto found = kinds.find(folded(name));
    return found == kinds.end() ? usual : found->second;
}

/// A length of paper; 0 for one that no page can have.
double paper_length(double number) {
    constexpr double longest = 5080;  // millimetres
    return number > 0 && number <= longest ? number : 0;
}

std::optional<double> plot_scale(Tags tags) {
    constexpr int fits = 0;
    constexpr unsigned uses_standard_scale = 16;
    const bool is_standard = (static_cast<unsigned>(tags.integer(70)) & uses_standard_scale) != 0;
    if (is_standard && tags.integer(75) == fits) return std::nullopt;
    const double paper = tags.number(142);
    const double drawing = tags.number(143);
    if (!(paper > 0) || !(drawing > 0)) return std::nullopt;
    return paper / drawing;
}

PlotSettings plot_settings(Tags tags) {
    constexpr unsigned is_centred = 4;
    constexpr int inches = 0;
    PlotSettings settings;
    settings.width = paper_length(tags.number(44));
    settings.height = paper_length(tags.number(45));
    settings.left = paper_length(tags.number(40));
    settings.bottom = paper_length(tags.number(41));
    settings.right = paper_length(tags.number(42));
    settings.top = paper_length(tags.number(43));
    settings.offset = {tags.number(46), tags.number(47), 0};
    if (!is_finite(settings.offset)) settings.offset = {};
    settings.quarter_turns = static_cast<int>(static_cast<unsigned>(tags.integer(73)) % 4);
    settings.area = static_cast<PlotSettings::Area>(std::clamp(tags.integer(74), 0, 5));
    settings.window.add({tags.number(48), tags.number(49), 0});
    settings.window.add({tags.number(140), tags.number(141), 0});
    settings.is_centred = (static_cast<unsigned>(tags.integer(70)) & is_centred) != 0;
    settings.is_in_inches = tags.integer(72) == inches;
    settings.scale = plot_scale(tags);
    return settings;
}

}  // namespace

Drawing::Drawing(std::string dxf, std::optional<NameSet> layers_off)
    : file_(std::move(dxf)), layers_off_(std::move(layers_off)), decoder_("", "") {
    read();
    settle_layouts();
}

void Drawing::read() {
    std::string_view section;
    const Tags all = file_.tags();
    const auto is_start = [](const Tag& tag) { return tag.code == 0; };
    for (auto at = std::find_if(all.begin(), all.end(), is_start); at != all.end();) {
        const auto next = std::find_if(at + 1, all.end(), is_start);
        const std::string_view type = at->value;
        const Tags tags(std::span(at + 1, next));
        at = next;
        if (type == "SECTION") {
            section = tags.text(2);
            open_block_ = nullptr;
            if (section == "HEADER") read_variables(tags);
        } else if (section == "TABLES") {
            read_table_entry(type, tags);
        } else if (section == "BLOCKS") {
            read_block_part(type, tags);
        } else if (section == "ENTITIES" && type != "ENDSEC") {
            add_entity(type, tags, space(tags.integer(67) == 1));
        } else if (section == "OBJECTS" && type == "LAYOUT") {
            read_layout(tags);
        }
    }
}

void Drawing::read_variables(Tags tags) {
    constexpr int name_code = 9;
    const auto is_name = [](const Tag& tag) { return tag.code == name_code; };
    for (auto at = std::find_if(tags.begin(), tags.end(), is_name); at != tags.end();) {
        const auto next = std::find_if(at + 1, tags.end(), is_name);
        variables_[at->value] = std::span(at + 1, next);
        at = next;
    }
    decoder_ = TextDecoder(variables_["$ACADVER"].text(1), variables_["$DWGCODEPAGE"].text(3));
}

void Drawing::read_table_entry(std::string_view type, Tags tags) {
    if (type == "LAYER") return read_layer(tags);
    if (type == "STYLE") return read_style(tags);
    if (type == "BLOCK_RECORD") block_names_[tags.text(5)] = block_key(tags.text(2));
    if (type != "LTYPE") return;
    Linetype& linetype = linetypes_[folded(tags.text(2))];
    linetype.clear();
    constexpr int dash = 49;
    constexpr std::size_t most_dashes = 100;
    for (const Tag& tag : tags)
        if (tag.code == dash && linetype.size() < most_dashes) linetype.push_back(number_of(tag));
}

void Drawing::read_layer(Tags tags) {
    constexpr unsigned frozen = 1;
    Layer layer;
    const int colour = tags.integer(62, 7);
    layer.colour = std::abs(colour);
    if (tags.has(420)) layer.true_colour = static_cast<std::uint32_t>(tags.integer(420));
    layer.linetype = folded(tags.text(6));
    layer.weight = tags.integer(370, usual_weight);
    layer.is_frozen = (static_cast<unsigned>(tags.integer(70)) & frozen) != 0;
    const std::string name = folded(tags.text(2));
    // The points that dimensions are measured from are never plotted.
    const bool is_off = layers_off_ ? layers_off_->contains(folded(text(tags.text(2)))) : colour < 0;
    layer.is_shown = !is_off && !layer.is_frozen && tags.integer(290, 1) != 0 && name != "defpoints";
    layer.handle = tags.text(5);
    layers_[name] = std::move(layer);
}

void Drawing::read_style(Tags tags) {
    constexpr unsigned bold = 0x2000000;
    constexpr unsigned italic = 0x1000000;
    TextStyle style{.font = text(tags.text(3))};
    if (const std::string_view family = tags.text(1000); !family.empty()) {
        const auto flags = static_cast<unsigned>(tags.integer(1071));
        style = {text(family), (flags & bold) != 0, (flags & italic) != 0};
    }
    styles_[folded(tags.text(2))] = std::move(style);
}

void Drawing::read_block_part(std::string_view type, Tags tags) {
    if (type == "BLOCK") {
        constexpr unsigned is_external = 4;
        open_block_ = &blocks_[block_key(tags.text(2))];
        open_block_->base = tags.point(10);
        open_block_->is_external = (static_cast<unsigned>(tags.integer(70)) & is_external) != 0;
    } else if (type == "ENDBLK") {
        open_block_ = nullptr;
    } else if (open_block_ != nullptr) {
        add_entity(type, tags, *open_block_);
    }
}

void Drawing::add_entity(std::string_view type, Tags tags, Block& block) {
    if (type == "SEQEND") return;
    if (!block.entities.empty()) {
        Entity& last = block.entities.back();
        const bool is_part = (type == "VERTEX" && last.type == "POLYLINE") ||
                             (type == "ATTRIB" && (last.type == "INSERT" || last.type == "MINSERT"));
        if (is_part) return last.parts.push_back({type, tags, {}});
    }
    block.entities.push_back({type, tags, {}});
}

Block& Drawing::space(bool is_paper) {
    return blocks_[std::string(is_paper ? paper_space : model_space)];
}

void Drawing::read_layout(Tags tags) {
    const Tags own = tags.subclass("AcDbLayout");
    Layout layout;
    layout.name = text(own.text(1));
    layout.tab = own.integer(71);
    layout.plot = plot_settings(tags.subclass("AcDbPlotSettings"));
    layout.limits.add(own.point(10));
    layout.limits.add(own.point(11));
    const auto block = block_names_.find(own.text(330));
    if (layout.name.empty() || block == block_names_.end()) return;
    layout.is_model = block->second == model_space;
    layouts_.push_back(std::move(layout));
    layout_blocks_.push_back(block->second);
}

/// Older drawings have no list of layouts: a model, and a sheet where anything stands on it.
void Drawing::settle_layouts() {
    const auto has_model = [&] { return std::ranges::any_of(layouts_, &Layout::is_model); };
    const bool has_sheets = std::ranges::any_of(layouts_, [](const Layout& one) { return !one.is_model; });
    for (std::size_t i = 0; i < layouts_.size(); ++i)
        layouts_[i].content = &blocks_[layout_blocks_[i]];
    if (!has_model()) layouts_.push_back({.name = "Model", .is_model = true, .content = &space(false)});
    if (!has_sheets && !space(true).entities.empty())
        layouts_.push_back({.name = "Layout1", .tab = 1, .content = &space(true)});
    std::ranges::stable_sort(layouts_, [](const Layout& a, const Layout& b) {
        return std::pair(!a.is_model, a.tab) < std::pair(!b.is_model, b.tab);
    });
}

const Layer& Drawing::layer(std::string_view name) const {
    return found_or_usual(layers_, name);
}

const Linetype& Drawing::linetype(std::string_view name) const {
    return found_or_usual(linetypes_, name);
}

const TextStyle& Drawing::style(std::string_view name) const {
    return found_or_usual(styles_, name);
}

const Block* Drawing::block(std::string_view name) const {
    const auto found = blocks_.find(block_key(name));
    return found == blocks_.end() ? nullptr : &found->second;
}

double Drawing::variable(std::string_view name, double otherwise) const {
    const auto found = variables_.find(name);
    if (found == variables_.end() || found->second.empty()) return otherwise;
    const double value = number_of(found->second.front());
    return std::isfinite(value) ? value : otherwise;
}

}  // namespace foliant::hosts::autocad
