#pragma once

#include "hosts/acrobat/images/content.h"
#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// A Windows or OS/2 bitmap as a picture. Raises ImageError.
Picture read_bmp(const Content& file);

}  // namespace foliant::hosts::acrobat::images
