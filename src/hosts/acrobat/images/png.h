#pragma once

#include "hosts/acrobat/images/content.h"
#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// A PNG as a picture. Its compressed data are copied unless they hold opacity, or rows in the order of
/// Adam7. Raises ImageError.
Picture read_png(const Content& file);

}  // namespace foliant::hosts::acrobat::images
