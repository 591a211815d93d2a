#pragma once

#include <vector>

#include "hosts/acrobat/images/content.h"
#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// The pictures of a TIFF, reduced copies left out. Those in one piece of group 4 fax or JPEG are copied, other
/// single bits become group 4 fax, everything else is deflated. Raises ImageError.
std::vector<Picture> read_tiff(const Content& file);

}  // namespace foliant::hosts::acrobat::images
