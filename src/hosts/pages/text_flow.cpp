#include "hosts/pages/text_flow.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace foliant::hosts::pages {

namespace {

constexpr double tab_distance = 35.45;  // points: 1.25 cm, as the office has it
constexpr double tolerance = 0.01;      // points

}  // namespace

TextFlow::TextFlow(std::string_view text, Shaper& shaper, double width)
    : text_(text), shaper_(shaper), width_(width) {}

void TextFlow::go_to(Place place) {
    offset_ = line_offset_ = place.offset;
    is_over_ = feeds_form_ = is_fed_ = false;
    lines_.clear();
    next_ = 0;
    if (has_line()) next_ = place.line;
}

bool TextFlow::has_line() {
    if (next_ == lines_.size() && !is_over_) read_line();
    return next_ < lines_.size();
}

bool TextFlow::is_at_end() {
    return !has_line();
}

bool TextFlow::is_at_form_feed() {
    return has_line() && next_ == 0 && is_fed_;
}

const TextLine* TextFlow::next() {
    return has_line() ? &lines_[next_++] : nullptr;
}

/// A line end before a form feed or the end is a part of that.
void TextFlow::read_line() {
    line_offset_ = offset_;
    is_fed_ = std::exchange(feeds_form_, false);
    const std::size_t end = std::min(text_.find_first_of("\n\f", offset_), text_.size());
    const std::string_view line = text_.substr(offset_, end - offset_);
    offset_ = end;
    if (offset_ < text_.size() && text_[offset_] == '\n') ++offset_;
    is_over_ = offset_ == text_.size();
    if (!is_over_ && text_[offset_] == '\f') {
        feeds_form_ = true;
        ++offset_;
    }
    lines_.clear();
    next_ = 0;
    if (is_simple(line))
        flow_simple(line);
    else
        flow_other(line);
}

void TextFlow::flow_other(std::string_view line) {
    while (!line.empty()) {
        std::size_t used = 0;
        for (TextLine& part : shaper_.lines(line, width_, tab_distance, used))
            lines_.push_back(std::move(part));
        line.remove_prefix(used);
    }
}

void TextFlow::flow_simple(std::string_view line) {
    while (!line.empty()) {
        const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
        if (end > 0) add_word(line.substr(0, end));
        if (end < line.size() && line[end] == ' ') ++spaces_;
        if (end < line.size() && line[end] == '\t') add_tab();
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    add_spaces();
    end_line();
}

/// What does not fit hangs over the end of the line, where nobody sees it.
void TextFlow::add_spaces() {
    if (spaces_ == 0) return;
    const Shaper::Piece& space = shaper_.space();
    for (; spaces_ > 0 && x_ + space.width <= width_; --spaces_)
        for (const GlyphRun& run : space.runs)
            add_run(run);
    spaces_ = 0;
}

void TextFlow::add_tab() {
    add_spaces();
    double stop = (std::floor((x_ + tolerance) / tab_distance) + 1) * tab_distance;
    if (stop > width_ && x_ > 0) {
        end_line();
        stop = tab_distance;
    }
    x_ = stop;
}

void TextFlow::add_word(std::string_view word) {
    for (const Shaper::Piece& piece : shaper_.word(word))
        add_piece(piece);
}

void TextFlow::add_piece(const Shaper::Piece& piece) {
    const double space = shaper_.space().width * static_cast<double>(spaces_);
    const bool is_first = x_ == 0 && spaces_ == 0;
    if (!is_first && x_ + space + piece.width > width_ + tolerance) {
        spaces_ = 0;
        end_line();
    }
    add_spaces();
    if (piece.width > width_ + tolerance) return add_letters(piece);
    for (const GlyphRun& run : piece.runs)
        add_run(run);
}

/// A word that is wider than a line ends where the line does.
void TextFlow::add_letters(const Shaper::Piece& piece) {
    for (const GlyphRun& run : piece.runs) {
        std::size_t place = 0;
        for (const Glyph& glyph : run.glyphs) {
            if (x_ > 0 && x_ + glyph.advance > width_ + tolerance) end_line();
            add_run({.font = run.font,
                     .text = run.text.substr(place, glyph.size),
                     .glyphs = {glyph},
                     .is_backward = run.is_backward,
                     .width = glyph.advance});
            place += glyph.size;
        }
    }
}

/// It becomes a part of the one before it, where that is of the same font and ends there.
void TextFlow::add_run(const GlyphRun& run) {
    const double left = x_;
    x_ += run.width;
    if (!line_.empty()) {
        GlyphRun& last = line_.back();
        if (last.font == run.font && std::fabs(last.left + last.width - left) < tolerance) {
            last.text += run.text;
            last.glyphs.insert(last.glyphs.end(), run.glyphs.begin(), run.glyphs.end());
            last.width += run.width;
            return;
        }
    }
    line_.push_back(run);
    line_.back().left = left;
}

void TextFlow::end_line() {
    lines_.push_back(std::exchange(line_, {}));
    x_ = 0;
}

}  // namespace foliant::hosts::pages
