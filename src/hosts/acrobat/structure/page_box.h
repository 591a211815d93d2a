#pragma once

#include <cstdint>

#include "hosts/acrobat/structure/page_list.h"

namespace foliant::hosts::acrobat::structure {

/// The part of a page that is shown, in the page's own coordinates.
struct PageBox {
    double left = 0;
    double bottom = 0;
    double right = 612;
    double top = 792;
    int turned = 0;        ///< clockwise when it is shown: 0, 90, 180 or 270 degrees
    double user_unit = 1;  ///< in points

    /// Of the page as it is shown, in points.
    double width() const { return (turned % 180 == 0 ? right - left : top - bottom) * user_unit; }
    double height() const { return (turned % 180 == 0 ? top - bottom : right - left) * user_unit; }
};

/// The crop box as far as it lies in the media box. What is missing or makes no sense has its usual value:
/// the whole page, a sheet of Letter size.
PageBox page_box(const Page& page);

}  // namespace foliant::hosts::acrobat::structure
