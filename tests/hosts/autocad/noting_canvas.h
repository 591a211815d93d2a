#pragma once

#include <string>
#include <vector>

#include "hosts/autocad/drawing/drawing.h"
#include "hosts/autocad/plot/canvas.h"

namespace foliant::hosts::autocad::test {

/// Notes what is drawn, a line each: "stroke 0,0 - 5,0", with what differs from the usual ink behind it.
class NotingCanvas : public Canvas {
  public:
    void stroke(const Path& path, const Ink& ink) override;
    void fill(const Path& path, const Ink& ink) override;
    void text(const std::string& utf8, const Font& font, const Matrix& place, const Ink& ink) override;
    void clip(const Path& path) override;
    void unclip() override { notes.emplace_back("unclip"); }
    bool shows(const Box&) const override { return true; }

    std::vector<std::string> notes;
};

/// What is drawn of a drawing's model, or of another layout, on a canvas whose units are the drawing's.
std::vector<std::string> drawn(const std::string& dxf, const std::string& layout = "Model");

}  // namespace foliant::hosts::autocad::test
