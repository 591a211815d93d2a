#pragma once

#include "hosts/acrobat/images/content.h"
#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// The first picture of a GIF. Raises ImageError.
Picture read_gif(const Content& file);

}  // namespace foliant::hosts::acrobat::images
