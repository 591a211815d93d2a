#include "hosts/acrobat/rectangle.h"

#include "automation/coerce.h"
#include "hosts/acrobat/acrobat_error.h"

namespace foliant::hosts::acrobat {

AcrobatRectangle::AcrobatRectangle() : LateBound(application_name) {
    const auto add_side = [this](std::string_view name, double text::Rectangle::*side) {
        add_property(
            name, [this, side] { return value_.*side; },
            [this, side](const automation::Value& value) { value_.*side = automation::to_double(value); });
    };
    add_side("Left", &text::Rectangle::left);
    add_side("Top", &text::Rectangle::top);
    add_side("Right", &text::Rectangle::right);
    add_side("Bottom", &text::Rectangle::bottom);
}

}  // namespace foliant::hosts::acrobat
