#pragma once

#include "hosts/autocad/plot/canvas.h"
#include "hosts/autocad/plot/fonts.h"

namespace foliant::hosts::autocad {

/// Draws nothing, and knows how much room it would have taken: without the weights of lines.
class MeasuringCanvas : public Canvas {
  public:
    explicit MeasuringCanvas(Fonts& fonts) : fonts_(fonts) {}

    const Box& taken() const noexcept { return taken_; }

    void stroke(const Path& path, const Ink& ink) override;
    void fill(const Path& path, const Ink& ink) override;
    void text(const std::string& utf8, const Font& font, const Matrix& place, const Ink& ink) override;
    void clip(const Path& path) override;
    void unclip() override;
    bool shows(const Box&) const override { return true; }
    bool only_measures() const override { return true; }

  private:
    void take(const Path& path);

    Fonts& fonts_;
    Box taken_;
    int clips_ = 0;
};

}  // namespace foliant::hosts::autocad
