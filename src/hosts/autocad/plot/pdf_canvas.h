#pragma once

#include <cairo.h>
#include <memory>
#include <string>
#include <vector>

#include "hosts/autocad/plot/canvas.h"
#include "hosts/autocad/plot/fonts.h"

namespace foliant::hosts::autocad {

/// A PDF of one page.
class PdfCanvas : public Canvas {
  public:
    /// Width and height are points.
    PdfCanvas(Fonts& fonts, double width, double height, const std::string& title);

    /// The file. Nothing can be drawn afterwards. Throws std::runtime_error when it could not be made.
    std::string finish();

    void stroke(const Path& path, const Ink& ink) override;
    void fill(const Path& path, const Ink& ink) override;
    void text(const std::string& utf8, const Font& font, const Matrix& place, const Ink& ink) override;
    void clip(const Path& path) override;
    void unclip() override;
    bool shows(const Box& box) const override { return box.touches(visible_.back()); }

  private:
    void put(const Path& path);
    void put_lines(const Path& path);
    void put_areas(const Path& path);
    void use(const Ink& ink);

    Fonts& fonts_;
    std::string file_;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo_;
    std::vector<Box> visible_;
};

}  // namespace foliant::hosts::autocad
