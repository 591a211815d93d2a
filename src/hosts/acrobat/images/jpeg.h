#pragma once

#include "hosts/acrobat/images/content.h"
#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// A JPEG as a picture: its data are copied, up to its end mark. Raises ImageError.
Picture read_jpeg(const Content& file);

}  // namespace foliant::hosts::acrobat::images
