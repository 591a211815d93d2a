#include "hosts/office/word/plain_page.h"

#include <algorithm>
#include <utility>

#include "hosts/office/word/page_rules.h"

namespace foliant::hosts::office {

namespace {

Edge edge_of(PageBand band) {
    return band == PageBand::header ? Edge::top : Edge::bottom;
}

std::size_t index_of(PageBand band) {
    return static_cast<std::size_t>(band);
}

}  // namespace

int PlainPage::margin(Edge edge) const {
    return side(edge).margin + side(edge).band;
}

/// The space between a header or footer and the text gives way, and nothing else of it.
void PlainPage::set_margin(Edge edge, int wanted) {
    Side& at = side(edge);
    if (at.band == 0)
        at.margin = wanted;
    else
        at.band = std::max(wanted - at.margin, least_height);
}

int PlainPage::largest_margin(Edge edge) const {
    switch (edge) {
        case Edge::top:
            return height_ - margin(Edge::bottom) - least_room;
        case Edge::left:
            return width_ - margin(Edge::right) - least_room;
        case Edge::right:
            return width_ - margin(Edge::left) - least_room;
        case Edge::bottom:
            break;
    }
    return height_ - margin(Edge::top) - least_room;
}

/// A quarter turn: what was the top comes to lie left, and goes back there.
void PlainPage::turn(bool landscape) {
    if (width_ == height_ || is_landscape() == landscape) return;
    const int top = margin(Edge::top);
    const int left = margin(Edge::left);
    const int right = margin(Edge::right);
    const int bottom = margin(Edge::bottom);
    std::swap(width_, height_);
    set_margin(Edge::left, landscape ? top : bottom);
    set_margin(Edge::right, landscape ? bottom : top);
    set_margin(Edge::top, landscape ? right : left);
    set_margin(Edge::bottom, landscape ? left : right);
}

/// Within the margin, so that the text keeps its place.
void PlainPage::switch_on(PageBand band) {
    Side& at = side(edge_of(band));
    if (at.band > 0) return;
    const int distance = std::min(edge_distance, at.margin / 2);
    at.band = std::max(at.margin - distance, least_height);
    at.margin = distance;
}

void PlainPage::add_number(PageBand band, NumberAlignment alignment, bool on_first_page) {
    switch_on(band);
    if (!on_first_page && first_is_shared_) {
        switch_on(PageBand::header);
        switch_on(PageBand::footer);
        first_ = numbers_;
        first_is_shared_ = false;
    }
    numbers_.at(index_of(band)).push_back(alignment);
    if (on_first_page && !first_is_shared_) first_.at(index_of(band)).push_back(alignment);
}

const PlainPage::Alignments& PlainPage::numbers_in(PageBand band, bool is_first_page) const {
    return (is_first_page && !first_is_shared_ ? first_ : numbers_).at(index_of(band));
}

/// How far from an edge the text begins: what is in a header or footer pushes it away. Without a number that has a
/// paragraph without text.
double PlainPage::reach(Edge edge, PageBand band, bool is_first_page, double line_height) const {
    const Side& at = side(edge);
    if (at.band == 0) return at.margin;
    const auto lines = std::max<std::size_t>(numbers_in(band, is_first_page).size(), 1);
    return at.margin + std::max<double>(at.band, static_cast<double>(lines) * line_height);
}

PlainPage::Area PlainPage::area(bool is_first_page, double line_height) const {
    return {reach(Edge::top, PageBand::header, is_first_page, line_height),
            height_ - reach(Edge::bottom, PageBand::footer, is_first_page, line_height)};
}

std::vector<PlainPage::Number> PlainPage::numbers(bool is_first_page, double line_height) const {
    std::vector<Number> numbers;
    double top = side(Edge::top).margin;
    for (const NumberAlignment alignment : numbers_in(PageBand::header, is_first_page)) {
        numbers.push_back({alignment, top});
        top += line_height;
    }
    const Alignments& below = numbers_in(PageBand::footer, is_first_page);
    top = height_ - side(Edge::bottom).margin - static_cast<double>(below.size()) * line_height;
    for (const NumberAlignment alignment : below) {
        numbers.push_back({alignment, top});
        top += line_height;
    }
    return numbers;
}

}  // namespace foliant::hosts::office
