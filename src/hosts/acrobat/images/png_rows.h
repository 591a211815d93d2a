#pragma once

#include <functional>
#include <vector>

#include "hosts/acrobat/images/png_chunks.h"
#include "hosts/acrobat/images/row_compressor.h"

namespace foliant::hosts::acrobat::images {

/// Told the rows of an image from the top.
using TakeRow = std::function<void(Row)>;

/// Hands out the rows of an image that is not interlaced as they are stored: with their filter byte first,
/// still predicted. Prediction goes byte by byte from the same component of other pixels, so components can
/// be taken apart without undoing it. Raises ImageError when rows are missing.
void read_stored_rows(const PngChunks& png, const TakeRow& take);

/// Hands out the rows of any image as pixels. Keeps an interlaced one in memory. Raises likewise.
void read_pixel_rows(const PngChunks& png, const TakeRow& take);

}  // namespace foliant::hosts::acrobat::images
