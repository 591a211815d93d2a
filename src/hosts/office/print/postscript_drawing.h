#pragma once

#include <Object.h>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class GfxState;

namespace foliant::hosts::office {

/// PostScript of pages in the making: what poppler writes, and plain text, which is shown a line at a time.
///
/// What changes the state of the interpreter is held back until something is drawn in it. Where the state is restored
/// before, it is never written; plain text has all that it needs beside it, in a block of its own.
class PostScriptDrawing {
  public:
    const std::string& text() const noexcept { return output_; }

    /// What poppler writes.
    void take(std::string_view bytes);

    /// Takes what `action` writes as a change of the state.
    template <class Action>
    void hold(Action action) {
        is_holding_ = true;
        action();
        is_holding_ = false;
    }
    /// The same for saving the state, and for restoring it.
    template <class Action>
    void save(Action action) {
        saves_.push_back(held_.size());
        hold(action);
    }
    template <class Action>
    void restore(Action action) {
        if (saves_.empty()) {
            held_.clear();
            action();
            return;
        }
        hold(action);
        held_.resize(saves_.back());
        saves_.pop_back();
    }

    /// Goes to that place of the page.
    void move_to(double x, double y);

    /// Text that stands upright, in a font of one byte a character, and is filled with grey or RGB.
    void add_plain_text(GfxState& state, const std::string& text);

  private:
    /// What an interpreter has to be told before text is shown.
    struct Style {
        Ref font{};
        double size = 0;
        std::string color;  ///< with the operator that sets it

        bool operator==(const Style& other) const {
            return font == other.font && size == other.size && color == other.color;
        }
    };

    /// Characters beside each other on one baseline.
    struct Run {
        std::string characters;
        std::vector<double> advances;  ///< from each to the next, in points
        double x = 0;
        double y = 0;
        double length = 0;       ///< the sum of the advances
        bool is_natural = true;  ///< whether they are those of the font

        bool empty() const noexcept { return characters.empty(); }
    };

    static Style style_of(GfxState& state);
    void write(std::string_view bytes);
    void add_characters(const GfxState& state, const std::string& text);
    void end_run();
    void write_advances();
    void write_style();
    void begin_block();
    void end_block();

    std::string output_;
    std::string held_;                ///< changes of the state since something was drawn
    std::vector<std::size_t> saves_;  ///< where in `held_` the state is saved
    bool is_holding_ = false;
    Run run_;
    Style style_;  ///< of the run
    bool is_in_block_ = false;
    Style written_style_;  ///< in the block
};

}  // namespace foliant::hosts::office
