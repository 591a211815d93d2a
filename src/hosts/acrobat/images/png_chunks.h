#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/images/exif.h"
#include "hosts/acrobat/images/picture.h"

namespace foliant::hosts::acrobat::images {

/// What the chunks of a PNG say.
struct PngChunks {
    enum Kind : std::uint8_t { grey = 0, rgb = 2, palette = 3, grey_with_opacity = 4, rgb_with_opacity = 6 };

    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int bits = 0;  ///< of a component
    Kind kind = grey;
    bool is_interlaced = false;
    std::string_view colours;       ///< of the palette, red, green, blue
    std::string_view transparency;  ///< as it is stored
    bool has_transparency = false;
    std::string icc_profile;
    Resolution resolution;
    Exif exif;
    std::vector<std::string_view> data;  ///< the compressed rows, in order

    int components() const;                             ///< of a pixel, opacity included
    bool has_opacity() const;                           ///< in each pixel
    std::size_t pixel_bytes() const;                    ///< at least 1
    std::size_t row_bytes(std::uint32_t pixels) const;  ///< of so many, without the filter byte
};

/// Reads them, and checks that all are there and unharmed. Raises ImageError.
PngChunks read_png_chunks(std::string_view file);

}  // namespace foliant::hosts::acrobat::images
