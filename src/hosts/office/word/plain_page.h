#pragma once

#include <array>
#include <vector>

#include "hosts/office/word/document.h"

namespace foliant::hosts::office {

/// The page setup of a plain text, by the rules by which page_margins.h and page_numbers.h have it in LibreOffice. Lengths
/// are in 1/100 mm.
class PlainPage {
  public:
    PlainPage(int width, int height) : width_(width), height_(height) {}

    int width() const noexcept { return width_; }
    int height() const noexcept { return height_; }

    bool is_landscape() const noexcept { return width_ > height_; }
    void turn(bool landscape);

    /// From an edge to the text.
    int margin(Edge edge) const;
    /// How far from an edge the text can begin, so that there is room for it before the margin opposite.
    int largest_margin(Edge edge) const;
    void set_margin(Edge edge, int wanted);

    void add_number(PageBand band, NumberAlignment alignment, bool on_first_page);

    /// Where a page has its text, when a line of its header or footer is that high.
    struct Area {
        double top;
        double bottom;  ///< from the upper edge of the paper, too
    };
    Area area(bool is_first_page, double line_height) const;

    /// The numbers on a page, and where each of their lines begins.
    struct Number {
        NumberAlignment alignment;
        double top;
    };
    std::vector<Number> numbers(bool is_first_page, double line_height) const;

  private:
    using Alignments = std::vector<NumberAlignment>;

    /// What is between an edge of the paper and the text.
    struct Side {
        int margin = 2000;  ///< up to a header or footer where there is one
        int band = 0;       ///< the height of that, with what keeps it apart from the text; 0 for none
    };
    Side& side(Edge edge) { return sides_.at(static_cast<std::size_t>(edge)); }
    const Side& side(Edge edge) const { return sides_.at(static_cast<std::size_t>(edge)); }
    void switch_on(PageBand band);
    const Alignments& numbers_in(PageBand band, bool is_first_page) const;
    double reach(Edge edge, PageBand band, bool is_first_page, double line_height) const;

    int width_;
    int height_;
    std::array<Side, 4> sides_{};          ///< by Edge
    std::array<Alignments, 2> numbers_{};  ///< by PageBand
    std::array<Alignments, 2> first_{};    ///< those of the first page, where it is not like the others
    bool first_is_shared_ = true;
};

}  // namespace foliant::hosts::office
