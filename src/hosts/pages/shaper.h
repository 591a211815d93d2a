#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/pages/glyphs.h"
#include "hosts/pages/paper_context.h"

namespace foliant::hosts::pages {

/// The letters of a text. Lengths are in points.
struct Lettering {
    std::string font;  ///< a name, or several with commas between them: the first one that there is
    double points = 10;
    bool is_bold = false;
    bool is_italic = false;
};

/// Finds out what is drawn for a text, by Pango, which knows every script. Words are looked up once: of a long text most
/// have been there before.
class Shaper {
  public:
    explicit Shaper(const Lettering& lettering);

    /// From one line to the next, and from the top of a line to where its letters stand: whatever letters of other fonts
    /// are in it. Whole twentieths of a point, as the office has them.
    double line_height() const noexcept { return ascent_ + descent_; }
    double ascent() const noexcept { return ascent_; }

    /// How far below the letters a line under them begins, and how thick it is.
    double underline_distance() const noexcept { return underline_distance_; }
    double underline_thickness() const noexcept { return underline_thickness_; }

    /// A text that stays on one line. Its first run begins at 0.
    struct Piece {
        TextLine runs;
        double width = 0;
    };

    /// A blank.
    const Piece& space() const noexcept { return space_; }

    /// A word of letters that stand beside each other in the order in which they are read (see is_simple), in the pieces
    /// between which a line may end. Good until the next call.
    const std::vector<Piece>& word(std::string_view word);

    /// Any text without line ends, broken into lines of at most that width. Tabs stand at every `tab`. `used` becomes
    /// what of the text is in the lines: a very long one takes several calls, and its last line is left for the next.
    std::vector<TextLine> lines(std::string_view text, double width, double tab, std::size_t& used);

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view word) const { return std::hash<std::string_view>()(word); }
    };

    void measure();
    std::vector<Piece> shaped(std::string_view word);
    Piece shaped_piece(std::string_view text);
    TextLine runs_of(PangoLayoutLine* line, std::string_view text);
    PangoFont* kept(PangoFont* font);

    ContextPtr context_;
    FontDescriptionPtr description_;
    LayoutPtr layout_;  ///< of one line
    LayoutPtr wrapped_;
    std::unordered_map<PangoFont*, FontPtr> fonts_;  ///< of all runs
    std::unordered_map<std::string, std::vector<Piece>, Hash, std::equal_to<>> words_;
    Piece space_;
    double ascent_ = 0;
    double descent_ = 0;
    double underline_distance_ = 0;
    double underline_thickness_ = 0;
};

/// Whether the letters of a text, UTF-8, stand beside each other in the order in which they are read, each by itself, and
/// lines end between words: Latin, Greek and Cyrillic ones without marks of their own, and tabs.
bool is_simple(std::string_view text);

}  // namespace foliant::hosts::pages
