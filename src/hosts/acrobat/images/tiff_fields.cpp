#include "hosts/acrobat/images/tiff_fields.h"

#include <algorithm>

#include "hosts/acrobat/images/image_error.h"

namespace foliant::hosts::acrobat::images {

TiffFields read_fields(const TiffMemory& tiff) {
    TIFF* const in = tiff.get();
    TiffFields fields;
    ::TIFFGetField(in, TIFFTAG_IMAGEWIDTH, &fields.width);
    ::TIFFGetField(in, TIFFTAG_IMAGELENGTH, &fields.height);
    require_reasonable_size(fields.width, fields.height, "TIFF");
    ::TIFFGetFieldDefaulted(in, TIFFTAG_BITSPERSAMPLE, &fields.bits);
    ::TIFFGetFieldDefaulted(in, TIFFTAG_SAMPLESPERPIXEL, &fields.samples);
    ::TIFFGetFieldDefaulted(in, TIFFTAG_COMPRESSION, &fields.compression);
    ::TIFFGetFieldDefaulted(in, TIFFTAG_PLANARCONFIG, &fields.planes);
    ::TIFFGetFieldDefaulted(in, TIFFTAG_SAMPLEFORMAT, &fields.format);
    ::TIFFGetFieldDefaulted(in, TIFFTAG_FILLORDER, &fields.fill_order);
    if (::TIFFGetField(in, TIFFTAG_PHOTOMETRIC, &fields.photometric) == 0 && fields.samples >= 3)
        fields.photometric = PHOTOMETRIC_RGB;
    std::uint16_t* kinds = nullptr;
    if (::TIFFGetField(in, TIFFTAG_EXTRASAMPLES, &fields.extra_samples, &kinds) != 0 &&
        fields.extra_samples > 0)
        fields.extra_kind = kinds[0];
    fields.is_tiled = ::TIFFIsTiled(in) != 0;
    fields.is_one_piece = !fields.is_tiled && ::TIFFNumberOfStrips(in) == 1;
    return fields;
}

Resolution read_resolution(const TiffMemory& tiff) {
    constexpr double centimetres_an_inch = 2.54;
    float across = 0;
    float down = 0;
    std::uint16_t unit = RESUNIT_INCH;
    ::TIFFGetField(tiff.get(), TIFFTAG_XRESOLUTION, &across);
    ::TIFFGetField(tiff.get(), TIFFTAG_YRESOLUTION, &down);
    ::TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_RESOLUTIONUNIT, &unit);
    const double scale = unit == RESUNIT_CENTIMETER ? centimetres_an_inch : unit == RESUNIT_INCH ? 1 : 0;
    return {across * scale, down * scale};
}

Orientation read_orientation(const TiffMemory& tiff) {
    std::uint16_t orientation = ORIENTATION_TOPLEFT;
    ::TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_ORIENTATION, &orientation);
    return orientation >= 1 && orientation <= 8 ? orientation : ORIENTATION_TOPLEFT;
}

std::string read_profile(const TiffMemory& tiff, int components) {
    std::uint32_t size = 0;
    const void* data = nullptr;
    if (::TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &size, &data) == 0) return {};
    std::string profile(static_cast<const char*>(data), size);
    return components_of_profile(profile) == components ? profile : std::string();
}

std::string read_palette(const TiffMemory& tiff, unsigned bits) {
    std::uint16_t* red = nullptr;
    std::uint16_t* green = nullptr;
    std::uint16_t* blue = nullptr;
    if (::TIFFGetField(tiff.get(), TIFFTAG_COLORMAP, &red, &green, &blue) == 0)
        throw ImageError("the TIFF has no palette");
    const std::size_t count = std::size_t{1} << bits;
    // Some programs write the values of bytes where words belong.
    const auto is_byte = [count](const std::uint16_t* values) {
        return std::all_of(values, values + count, [](std::uint16_t value) { return value < 256; });
    };
    const unsigned shift = is_byte(red) && is_byte(green) && is_byte(blue) ? 0 : 8;
    std::string palette;
    for (std::size_t i = 0; i < count; ++i)
        for (const std::uint16_t* part : {red, green, blue})
            palette += static_cast<char>(part[i] >> shift);
    return palette;
}

bool is_reduced_copy(const TiffMemory& tiff) {
    std::uint32_t kind = 0;
    ::TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_SUBFILETYPE, &kind);
    return (kind & FILETYPE_REDUCEDIMAGE) != 0;
}

}  // namespace foliant::hosts::acrobat::images
