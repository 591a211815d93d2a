#include "hosts/pages/text_pages.h"

#include <algorithm>

namespace foliant::hosts::pages {

TextPages::TextPages(std::string_view text, Shaper& shaper, const Look& look, const Frame& frame)
    : size_(text.size()), shaper_(shaper), look_(look), frame_(frame), flow_(text, shaper, frame.width) {}

bool TextPages::has(int page) {
    while (!all_are_known_ && static_cast<int>(beginnings_.size()) < page)
        lay_out(static_cast<int>(beginnings_.size()), nullptr);
    return page >= 1 && page <= static_cast<int>(beginnings_.size());
}

int TextPages::count() {
    while (!all_are_known_)
        lay_out(static_cast<int>(beginnings_.size()), nullptr);
    return static_cast<int>(beginnings_.size());
}

void TextPages::draw(int page, Canvas& canvas) {
    canvas.set_color(look_.color);
    lay_out(page, &canvas);
}

double TextPages::share_done() const {
    return size_ == 0 ? 1 : static_cast<double>(flow_.place().offset) / static_cast<double>(size_);
}

void TextPages::lay_out(int page, Canvas* canvas) {
    constexpr double tolerance = 0.001;
    if (page != next_page_) flow_.go_to(beginnings_[static_cast<std::size_t>(page) - 1]);
    const Area& area = area_of(page);
    double top = area.top;
    do {
        const TextLine* line = flow_.next();
        if (canvas != nullptr) draw_line(*line, top + shaper_.ascent(), *canvas);
        top += shaper_.line_height();
    } while (!flow_.is_at_end() && !flow_.is_at_form_feed() &&
             top + shaper_.line_height() <= area.top + area.height + tolerance);
    next_page_ = page + 1;
    if (static_cast<int>(beginnings_.size()) > page || all_are_known_) return;
    if (flow_.is_at_end())
        all_are_known_ = true;
    else
        beginnings_.push_back(flow_.place());
}

void TextPages::draw_line(const TextLine& line, double baseline, Canvas& canvas) const {
    for (const GlyphRun& run : line)
        canvas.show(run, frame_.left + run.left, baseline);
    if (!look_.is_underlined || line.empty()) return;
    const double width = line.back().left + line.back().width;  // an indent is underlined, too
    canvas.fill(frame_.left, baseline + shaper_.underline_distance(), width, shaper_.underline_thickness());
}

}  // namespace foliant::hosts::pages
