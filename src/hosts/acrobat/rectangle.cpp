#include "hosts/acrobat/rectangle.h"

#include "hosts/acrobat/acrobat_error.h"

namespace foliant::hosts::acrobat {

AcrobatRectangle::AcrobatRectangle() : RecordObject(application_name, {"Left", "Top", "Right", "Bottom"}) {}

text::Rectangle AcrobatRectangle::value() const {
    return {.left = number(0), .bottom = number(3), .right = number(2), .top = number(1)};
}

}  // namespace foliant::hosts::acrobat
