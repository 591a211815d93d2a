#include "hosts/office/print/postscript_drawing.h"

#include <GfxFont.h>
#include <GfxState.h>
#include <algorithm>
#include <cmath>
#include <utility>

#include "hosts/pages/postscript_syntax.h"

namespace foliant::hosts::office {

using pages::append_number;
using pages::append_string;

void PostScriptDrawing::take(std::string_view bytes) {
    if (is_holding_)
        held_ += bytes;
    else
        write(bytes);
}

void PostScriptDrawing::write(std::string_view bytes) {
    end_block();
    output_ += std::exchange(held_, {});
    saves_.clear();
    output_ += bytes;
}

void PostScriptDrawing::move_to(double x, double y) {
    std::string place;
    append_number(place, x);
    append_number(place, y);
    write(place + "moveto\n");
}

PostScriptDrawing::Style PostScriptDrawing::style_of(GfxState& state) {
    std::string color;
    if (state.getFillColorSpace()->getMode() == csDeviceGray) {
        GfxGray gray = 0;
        state.getFillGray(&gray);
        append_number(color, colToDbl(gray));
        color += "setgray\n";
    } else {
        GfxRGB rgb{};
        state.getFillRGB(&rgb);
        for (const GfxColorComp part : {rgb.r, rgb.g, rgb.b})
            append_number(color, colToDbl(part));
        color += "setrgbcolor\n";
    }
    return {*state.getFont()->getID(), state.getFontSize(), std::move(color)};
}

/// It goes on with the run when it begins where that ends, or begins another one.
void PostScriptDrawing::add_plain_text(GfxState& state, const std::string& text) {
    constexpr double same_line = 1e-3;  // points
    constexpr double widest_gap = 4;    // sizes of the font
    constexpr std::size_t most_in_run = 100;
    const double x = state.getCurX();
    const double gap = x - run_.x - run_.length;
    Style style = style_of(state);
    if (style != style_ || std::fabs(state.getCurY() - run_.y) > same_line ||
        std::fabs(gap) > widest_gap * style.size || run_.characters.size() > most_in_run)
        end_run();
    if (run_.empty()) {
        // What stands in for a font has advances of its own.
        Ref file{};
        run_.is_natural = state.getFont()->getEmbeddedFontID(&file);
        style_ = std::move(style);
        run_.x = x;
        run_.y = state.getCurY();
    } else if (std::fabs(gap) > same_line) {
        run_.advances.back() += gap;
        run_.length += gap;
        run_.is_natural = false;
    }
    add_characters(state, text);
}

void PostScriptDrawing::add_characters(const GfxState& state, const std::string& text) {
    const char* place = text.data();
    for (auto left = static_cast<int>(text.size()); left > 0;) {
        CharCode code = 0;
        const Unicode* meaning = nullptr;
        int letters = 0;
        double width = 0;
        double height = 0;
        double origin_x = 0;
        double origin_y = 0;
        const int taken = std::clamp(state.getFont()->getNextChar(place, left, &code, &meaning, &letters,
                                                                  &width, &height, &origin_x, &origin_y),
                                     1, left);
        const double space = state.getCharSpace() + (*place == ' ' ? state.getWordSpace() : 0);
        run_.is_natural = run_.is_natural && space == 0;
        run_.characters.append(place, static_cast<std::size_t>(taken));
        run_.advances.push_back(width * state.getFontSize() + space);
        run_.length += run_.advances.back();
        place += taken;
        left -= taken;
    }
}

void PostScriptDrawing::end_run() {
    if (run_.empty()) return;
    begin_block();
    write_style();
    append_string(output_, run_.characters);
    if (!run_.is_natural) write_advances();
    output_ += ' ';
    append_number(output_, run_.x);
    append_number(output_, run_.y);
    output_ += run_.is_natural ? "foliantS\n" : "foliantX\n";
    run_ = {};
}

void PostScriptDrawing::write_advances() {
    constexpr std::size_t numbers_a_line = 16;
    output_ += '[';
    for (std::size_t i = 0; i < run_.advances.size(); ++i) {
        if (i % numbers_a_line == 0) output_ += '\n';
        append_number(output_, run_.advances[i]);
    }
    output_ += ']';
}

void PostScriptDrawing::begin_block() {
    if (std::exchange(is_in_block_, true)) return;
    output_ += "q\n[1 0 0 1 0 0] Tm\n1 Tz\n";
    written_style_ = {};
}

void PostScriptDrawing::end_block() {
    end_run();
    if (std::exchange(is_in_block_, false)) output_ += "Q\n";
}

void PostScriptDrawing::write_style() {
    const bool is_first = written_style_.size == 0;
    if (is_first || style_.font != written_style_.font || style_.size != written_style_.size) {
        output_ += "/F" + std::to_string(style_.font.num) + '_' + std::to_string(style_.font.gen) + ' ';
        append_number(output_, style_.size);
        output_ += "Tf\n";
    }
    if (is_first || style_.color != written_style_.color) output_ += style_.color;
    written_style_ = style_;
}

}  // namespace foliant::hosts::office
