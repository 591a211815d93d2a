#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "hosts/pages/shaper.h"

namespace foliant::hosts::pages {

/// A text as the lines that it has on paper, one after the other.
class TextFlow {
  public:
    /// `text` is UTF-8 with line feeds between lines, and a form feed where a page ends; it and the shaper outlive this.
    /// `width` is that of a line, in points.
    TextFlow(std::string_view text, Shaper& shaper, double width);

    /// A place between two lines.
    struct Place {
        std::size_t offset = 0;  ///< of a line of the file
        std::size_t line = 0;    ///< of that, on paper
    };
    Place place() const noexcept { return {line_offset_, next_}; }
    void go_to(Place place);

    /// The next line, good until the next call; null at the end. A text without a letter has one.
    const TextLine* next();
    /// Whether a form feed stands before the next line.
    bool is_at_form_feed();
    bool is_at_end();

  private:
    bool has_line();
    void read_line();
    void flow_simple(std::string_view line);
    void flow_other(std::string_view line);
    void add_spaces();
    void add_tab();
    void add_word(std::string_view word);
    void add_piece(const Shaper::Piece& piece);
    void add_letters(const Shaper::Piece& piece);
    void add_run(const GlyphRun& run);
    void end_line();

    std::string_view text_;
    Shaper& shaper_;
    double width_;
    std::size_t offset_ = 0;       ///< of what comes behind the line of the file
    std::size_t line_offset_ = 0;  ///< of that line
    bool is_over_ = false;         ///< whether nothing comes behind it
    bool feeds_form_ = false;      ///< whether a form feed is between
    bool is_fed_ = false;          ///< whether one is before the line
    std::vector<TextLine> lines_;  ///< of it
    std::size_t next_ = 0;
    TextLine line_;           ///< the one that is being filled
    double x_ = 0;            ///< where it ends
    std::size_t spaces_ = 0;  ///< which come behind that
};

}  // namespace foliant::hosts::pages
