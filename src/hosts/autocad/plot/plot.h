#pragma once

#include <string>

#include "hosts/autocad/drawing/drawing.h"

namespace foliant::hosts::autocad {

/// A layout without anything on it.
class NothingToPlot : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A layout of a drawing as a PDF of one page with that title. Throws NothingToPlot, TooMuch, and runtime_error
/// when no PDF can be made.
std::string plot(const Drawing& drawing, const Layout& layout, const std::string& title);

}  // namespace foliant::hosts::autocad
