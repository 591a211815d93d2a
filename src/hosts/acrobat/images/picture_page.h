#pragma once

#include <qpdf/QPDF.hh>

#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// Adds a page that the picture fills. The PDF holds on to the picture's content.
void add_page(QPDF& pdf, const Picture& picture);

}  // namespace foliant::hosts::acrobat::images
