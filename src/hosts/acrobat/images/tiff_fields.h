#pragma once

#include <cstdint>
#include <string>

#include "hosts/acrobat/images/picture.h"
#include "hosts/acrobat/images/tiff_memory.h"

/// What the directory of a TIFF says of its picture, apart from the samples themselves.
namespace foliant::hosts::acrobat::images {

/// The fields that matter here, with the values that stand for those that are missing.
struct TiffFields {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t bits = 1;
    std::uint16_t samples = 1;
    std::uint16_t extra_samples = 0;
    std::uint16_t extra_kind = 0;  ///< of the first of them
    std::uint16_t compression = COMPRESSION_NONE;
    std::uint16_t photometric = PHOTOMETRIC_MINISWHITE;
    std::uint16_t planes = PLANARCONFIG_CONTIG;
    std::uint16_t format = SAMPLEFORMAT_UINT;
    std::uint16_t fill_order = FILLORDER_MSB2LSB;
    bool is_tiled = false;
    bool is_one_piece = false;

    /// What a PDF holds of a sample: 12 bits as 16 with the same meaning, of 32 the upper half.
    unsigned stored_bits() const { return bits == 12 || bits == 32 ? 16 : bits; }
    int colours() const { return samples - extra_samples; }
    bool is_single_bits() const {
        return bits == 1 && samples == 1 && !is_tiled &&
               (photometric == PHOTOMETRIC_MINISWHITE || photometric == PHOTOMETRIC_MINISBLACK);
    }
    bool is_negative() const { return photometric == PHOTOMETRIC_MINISWHITE; }
    bool has_opacity() const { return extra_samples > 0 && extra_kind != EXTRASAMPLE_UNSPECIFIED; }
};

/// Throws ImageError for a picture that claims more pixels than anybody could print.
TiffFields read_fields(const TiffMemory& tiff);

/// In pixels an inch; 0 where the file does not say.
Resolution read_resolution(const TiffMemory& tiff);

/// 1, as it is, where the file says nothing or nonsense.
Orientation read_orientation(const TiffMemory& tiff);

/// The ICC profile; "" when there is none, or one of another number of colours.
std::string read_profile(const TiffMemory& tiff, int components);

/// Red, green and blue of each of the 2^bits colours, a byte each. Throws ImageError when there is no palette.
std::string read_palette(const TiffMemory& tiff, unsigned bits);

/// Whether the picture is another one of the file again, smaller.
bool is_reduced_copy(const TiffMemory& tiff);

}  // namespace foliant::hosts::acrobat::images
