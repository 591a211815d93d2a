#pragma once

#include "hosts/acrobat/text/page_text.h"
#include "hosts/record_object.h"

namespace foliant::hosts::acrobat {

/// "AcroExch.Rect": a rectangle in points, y upwards, with the properties Left, Top, Right and Bottom.
class AcrobatRectangle : public RecordObject {
  public:
    AcrobatRectangle();

    text::Rectangle value() const;
};

}  // namespace foliant::hosts::acrobat
