#pragma once

#include <string_view>
#include <vector>

#include "hosts/pages/shaper.h"
#include "hosts/pages/text_flow.h"

namespace foliant::hosts::pages {

/// A text as pages. Lengths are in points.
class TextPages {
  public:
    /// How the lines look, besides their letters.
    struct Look {
        bool is_underlined = false;
        std::uint32_t color = 0;  ///< as Canvas has it
    };
    /// Where a page has its text. What is lower than one line has one all the same.
    struct Area {
        double top;
        double height;
    };
    /// What all pages have in common, and the first page and the others.
    struct Frame {
        double left;
        double width;
        Area first;
        Area others;
    };

    /// `text` is as TextFlow has it; it and the shaper outlive this.
    TextPages(std::string_view text, Shaper& shaper, const Look& look, const Frame& frame);

    /// Whether there is a page of that number, from 1.
    bool has(int page);
    int count();

    /// Draws the text of a page that there is, on the page that the canvas has begun.
    void draw(int page, Canvas& canvas);

    /// How much of the text is on the pages up to the one that was laid out last, from 0 to 1.
    double share_done() const;

  private:
    void lay_out(int page, Canvas* canvas);
    void draw_line(const TextLine& line, double baseline, Canvas& canvas) const;
    const Area& area_of(int page) const { return page == 1 ? frame_.first : frame_.others; }

    std::size_t size_;
    Shaper& shaper_;
    Look look_;
    Frame frame_;
    TextFlow flow_;
    int next_page_ = 1;                            ///< the one that `flow_` is at the beginning of
    std::vector<TextFlow::Place> beginnings_{{}};  ///< of the pages that are known
    bool all_are_known_ = false;
};

}  // namespace foliant::hosts::pages
