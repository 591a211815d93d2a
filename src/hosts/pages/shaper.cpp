#include "hosts/pages/shaper.h"

#include <algorithm>
#include <cmath>
#include <hb.h>
#include <utility>

namespace foliant::hosts::pages {

namespace {

/// The office counts in twentieths of a point.
double in_twips(int pango_units) {
    constexpr double twips_a_point = 20;
    return std::round(points(pango_units) * twips_a_point) / twips_a_point;
}

struct AttributesUnref {
    void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
};
struct TabsFree {
    void operator()(PangoTabArray* tabs) const { pango_tab_array_free(tabs); }
};
struct MetricsUnref {
    void operator()(PangoFontMetrics* metrics) const { pango_font_metrics_unref(metrics); }
};

FontDescriptionPtr described(const Lettering& lettering) {
    FontDescriptionPtr description(pango_font_description_new());
    pango_font_description_set_family(description.get(), lettering.font.c_str());
    pango_font_description_set_size(description.get(),
                                    static_cast<int>(std::lround(lettering.points * PANGO_SCALE)));
    if (lettering.is_bold) pango_font_description_set_weight(description.get(), PANGO_WEIGHT_BOLD);
    if (lettering.is_italic) pango_font_description_set_style(description.get(), PANGO_STYLE_ITALIC);
    return description;
}

/// Where a word is broken, no letter is added to it, and it begins at the left whatever language it is in.
LayoutPtr make_layout(PangoContext* context, const PangoFontDescription* description) {
    LayoutPtr layout(pango_layout_new(context));
    pango_layout_set_font_description(layout.get(), description);
    pango_layout_set_auto_dir(layout.get(), FALSE);
    const std::unique_ptr<PangoAttrList, AttributesUnref> attributes(pango_attr_list_new());
    pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
    pango_layout_set_attributes(layout.get(), attributes.get());
    return layout;
}

/// How many bytes of the text of an item, which has `length`, each glyph stands for.
std::vector<std::size_t> sizes_of(const PangoGlyphString& glyphs, int length) {
    std::vector<int> starts(glyphs.log_clusters, glyphs.log_clusters + glyphs.num_glyphs);
    std::ranges::sort(starts);
    starts.push_back(length);
    std::vector<std::size_t> sizes(static_cast<std::size_t>(glyphs.num_glyphs));
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const int start = glyphs.log_clusters[i];
        if (i > 0 && glyphs.log_clusters[i - 1] == start) continue;
        sizes[i] = static_cast<std::size_t>(*std::ranges::upper_bound(starts, start) - start);
    }
    return sizes;
}

/// What is drawn for a glyph of Pango's: nothing for a tab, which is one of its own, and for letters that only say how
/// others are drawn, and the font's own box for what it does not have.
unsigned drawn(PangoGlyph glyph, PangoFont* font) {
    constexpr unsigned box = 0;
    if (glyph == PANGO_GLYPH_EMPTY) {
        hb_codepoint_t space = box;
        hb_font_get_nominal_glyph(pango_font_get_hb_font(font), ' ', &space);
        return space;
    }
    return (glyph & PANGO_GLYPH_UNKNOWN_FLAG) == 0 ? glyph : box;
}

/// Whether a line may end in that word, but at its end.
std::vector<std::size_t> breaks_in(std::string_view word) {
    const auto is_letter = [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '.' ||
               letter == ',';
    };
    if (std::ranges::all_of(word, is_letter)) return {};
    const auto letters =
        static_cast<std::size_t>(g_utf8_strlen(word.data(), static_cast<gssize>(word.size())));
    std::vector<PangoLogAttr> attributes(letters + 1);
    pango_get_log_attrs(word.data(), static_cast<int>(word.size()), -1, pango_language_get_default(),
                        attributes.data(), static_cast<int>(attributes.size()));
    std::vector<std::size_t> breaks;
    const char* place = word.data();
    for (std::size_t i = 0; i < letters; ++i, place = g_utf8_next_char(place))
        if (i > 0 && attributes[i].is_line_break != 0)
            breaks.push_back(static_cast<std::size_t>(place - word.data()));
    return breaks;
}

struct Letters {
    char32_t first;
    char32_t last;
};

// Combining marks, soft hyphens and what changes the direction are not among them.
constexpr Letters simple_letters[]{{0x20, 0x7E},     {0xA0, 0xAC},     {0xAE, 0x2FF},    {0x370, 0x482},
                                   {0x48A, 0x52F},   {0x1E00, 0x1EFF}, {0x2010, 0x2027}, {0x2030, 0x205E},
                                   {0x20A0, 0x20C0}, {0x2100, 0x214F}, {0x2190, 0x21FF}, {0x2500, 0x25FF}};

}  // namespace

bool is_simple(std::string_view text) {
    const auto is_ascii = [](char letter) { return letter == '\t' || (letter >= ' ' && letter <= '~'); };
    for (std::size_t i = 0; i < text.size();) {
        if (is_ascii(text[i])) {
            ++i;
            continue;
        }
        const gunichar letter =
            g_utf8_get_char_validated(text.data() + i, static_cast<gssize>(text.size() - i));
        const auto is_in = [&](const Letters& letters) {
            return letter >= letters.first && letter <= letters.last;
        };
        if (!std::ranges::any_of(simple_letters, is_in)) return false;
        i += static_cast<std::size_t>(g_utf8_next_char(text.data() + i) - (text.data() + i));
    }
    return true;
}

Shaper::Shaper(const Lettering& lettering)
    : context_(make_paper_context()),
      description_(described(lettering)),
      layout_(make_layout(context_.get(), description_.get())),
      wrapped_(make_layout(context_.get(), description_.get())) {
    pango_context_set_base_dir(context_.get(), PANGO_DIRECTION_LTR);
    for (const LayoutPtr* layout : {&layout_, &wrapped_})
        pango_layout_context_changed(layout->get());
    pango_layout_set_wrap(wrapped_.get(), PANGO_WRAP_WORD_CHAR);
    measure();
    space_ = shaped_piece(" ");
}

void Shaper::measure() {
    const FontPtr font(pango_context_load_font(context_.get(), description_.get()));
    hb_font_extents_t extents{};
    hb_font_get_h_extents(pango_font_get_hb_font(font.get()), &extents);
    ascent_ = in_twips(extents.ascender) + in_twips(extents.line_gap);
    descent_ = in_twips(-extents.descender);
    const std::unique_ptr<PangoFontMetrics, MetricsUnref> metrics(
        pango_font_get_metrics(font.get(), nullptr));
    underline_distance_ = -points(pango_font_metrics_get_underline_position(metrics.get()));
    underline_thickness_ = points(pango_font_metrics_get_underline_thickness(metrics.get()));
}

PangoFont* Shaper::kept(PangoFont* font) {
    const auto [place, is_new] = fonts_.try_emplace(font);
    if (is_new) place->second.reset(static_cast<PangoFont*>(g_object_ref(font)));
    return font;
}

TextLine Shaper::runs_of(PangoLayoutLine* line, std::string_view text) {
    TextLine runs;
    double left = 0;
    for (const GSList* item = line->runs; item != nullptr; item = item->next) {
        const auto& [part, glyphs, y_offset, start_x, end_x] = *static_cast<PangoGlyphItem*>(item->data);
        GlyphRun run{.font = kept(part->analysis.font),
                     .text = std::string(text.substr(static_cast<std::size_t>(part->offset),
                                                     static_cast<std::size_t>(part->length))),
                     .glyphs = {},
                     .is_backward = part->analysis.level % 2 != 0,
                     .left = left};
        const std::vector<std::size_t> sizes = sizes_of(*glyphs, part->length);
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            const PangoGlyphInfo& glyph = glyphs->glyphs[i];
            run.glyphs.push_back({.index = drawn(glyph.glyph, run.font),
                                  .advance = points(glyph.geometry.width),
                                  .right = points(glyph.geometry.x_offset),
                                  .down = points(glyph.geometry.y_offset),
                                  .size = sizes[i]});
            run.width += run.glyphs.back().advance;
        }
        left += run.width;
        runs.push_back(std::move(run));
    }
    return runs;
}

Shaper::Piece Shaper::shaped_piece(std::string_view text) {
    pango_layout_set_text(layout_.get(), text.data(), static_cast<int>(text.size()));
    Piece piece{runs_of(pango_layout_get_line_readonly(layout_.get(), 0), text)};
    for (const GlyphRun& run : piece.runs)
        piece.width += run.width;
    return piece;
}

std::vector<Shaper::Piece> Shaper::shaped(std::string_view word) {
    std::vector<Piece> pieces;
    std::size_t begin = 0;
    for (const std::size_t end : breaks_in(word)) {
        pieces.push_back(shaped_piece(word.substr(begin, end - begin)));
        begin = end;
    }
    pieces.push_back(shaped_piece(word.substr(begin)));
    return pieces;
}

const std::vector<Shaper::Piece>& Shaper::word(std::string_view word) {
    constexpr std::size_t most_words = 50000;  // those of a language, and no file of random letters
    if (const auto known = words_.find(word); known != words_.end()) return known->second;
    if (words_.size() == most_words) words_.clear();
    return words_.emplace(word, shaped(word)).first->second;
}

std::vector<TextLine> Shaper::lines(std::string_view text, double width, double tab, std::size_t& used) {
    const std::string_view part = beginning_of(text);
    const std::unique_ptr<PangoTabArray, TabsFree> tabs(
        pango_tab_array_new_with_positions(1, FALSE, PANGO_TAB_LEFT, static_cast<int>(tab * PANGO_SCALE)));
    pango_layout_set_tabs(wrapped_.get(), tabs.get());
    pango_layout_set_width(wrapped_.get(), static_cast<int>(width * PANGO_SCALE));
    pango_layout_set_text(wrapped_.get(), part.data(), static_cast<int>(part.size()));
    const int count = pango_layout_get_line_count(wrapped_.get());
    const bool leaves_last = part.size() < text.size() && count > 1;
    std::vector<TextLine> lines;
    for (int i = leaves_last ? 1 : 0; i < count; ++i)
        lines.push_back(
            runs_of(pango_layout_get_line_readonly(wrapped_.get(), static_cast<int>(lines.size())), part));
    used = part.size();
    if (leaves_last)
        used =
            static_cast<std::size_t>(pango_layout_get_line_readonly(wrapped_.get(), count - 1)->start_index);
    return lines;
}

}  // namespace foliant::hosts::pages
