#pragma once

#include "hosts/acrobat/text/page_text.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::acrobat {

/// "AcroExch.Rect": a rectangle in points, y upwards, with the properties Left, Top, Right and Bottom.
class AcrobatRectangle : public LateBound {
  public:
    AcrobatRectangle();

    const text::Rectangle& value() const noexcept { return value_; }

  private:
    text::Rectangle value_;
};

}  // namespace foliant::hosts::acrobat
