#pragma once

#include <string>
#include <vector>

#include "hosts/autocad/drawing/colour.h"
#include "hosts/autocad/geometry/geometry.h"
#include "hosts/autocad/geometry/path.h"

namespace foliant::hosts::autocad {

/// What something is drawn with. Lengths are points on paper.
struct Ink {
    Colour colour{};
    double opacity = 1;
    double width = 0.7;
    bool is_flat = false;          ///< a line ends where it ends, with corners; others have round ends
    std::vector<double> dashes{};  ///< lengths in turn with gaps; empty for none
};

struct Font {
    std::string family;
    bool is_bold = false;
    bool is_italic = false;

    friend auto operator<=>(const Font&, const Font&) = default;
};

/// What is drawn on. Places are points on paper, from the left and from the top, for what is not said to be
/// somewhere else.
class Canvas {
  public:
    virtual ~Canvas() = default;

    virtual void stroke(const Path& path, const Ink& ink) = 0;
    /// What lies inside an odd number of outlines.
    virtual void fill(const Path& path, const Ink& ink) = 0;
    /// A line of text that begins on the origin, upright, with capitals of height 1, and put on paper by
    /// `place`.
    virtual void text(const std::string& utf8, const Font& font, const Matrix& place, const Ink& ink) = 0;
    /// Only what lies inside is drawn until `unclip`.
    virtual void clip(const Path& path) = 0;
    virtual void unclip() = 0;
    /// Whether what lies there would be seen.
    virtual bool shows(const Box& box) const = 0;
    /// Whether outlines are enough, and what has no end is of no interest.
    virtual bool only_measures() const { return false; }
};

}  // namespace foliant::hosts::autocad
