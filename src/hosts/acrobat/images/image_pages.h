#pragma once

#include <qpdf/QPDF.hh>
#include <string_view>

#include "hosts/acrobat/images/content.h"
#include "hosts/acrobat/images/image_error.h"

/// Image files as pages of a PDF. Compressed data are copied as they are wherever PDF has the same
/// compression: JPEG, PNG, and of TIFF the fax and JPEG kinds that lie in one piece. Everything else is kept
/// to the bit.
namespace foliant::hosts::acrobat::images {

/// Whether a file with these bytes, or so many of them as there are, is of a kind that becomes pages: JPEG,
/// PNG, TIFF, BMP, GIF.
bool is_image(std::string_view bytes);

/// Adds a page for each picture of a TIFF, one for any other image; of a GIF that moves the first picture. A
/// page has the size that the image's resolution gives it, 72 dots an inch where it has none. The PDF holds
/// on to the file's content. Raises ImageError; the PDF is of no use then.
void add_image_pages(QPDF& pdf, const Content& file);

}  // namespace foliant::hosts::acrobat::images
