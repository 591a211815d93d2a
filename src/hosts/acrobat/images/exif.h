#pragma once

#include <string_view>

#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// What a camera has noted about an image, as far as a page needs it.
struct Exif {
    Orientation orientation = 1;
    Resolution resolution;
};

/// Reads the block that begins with a TIFF header ("II" or "MM"). What is damaged in it counts as not there.
Exif read_exif(std::string_view block);

}  // namespace foliant::hosts::acrobat::images
