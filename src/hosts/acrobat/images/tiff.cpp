#include "hosts/acrobat/images/tiff.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "hosts/acrobat/images/image_error.h"
#include "hosts/acrobat/images/jpeg.h"
#include "hosts/acrobat/images/row_compressor.h"
#include "hosts/acrobat/images/tiff_fields.h"
#include "hosts/acrobat/images/tiff_memory.h"

namespace foliant::hosts::acrobat::images {
namespace {

using Prediction = RowCompressor::Prediction;

void hold(Pixels& pixels, std::string data) {
    pixels.content = Content(std::move(data));
    pixels.pieces = {pixels.content.bytes()};
}

Pixels blank(const TiffFields& fields, int components, int bits) {
    Pixels pixels;
    pixels.width = fields.width;
    pixels.height = fields.height;
    pixels.bits = bits;
    pixels.colours.components = components;
    return pixels;
}

std::string only_piece(const TiffMemory& tiff) {
    const std::uint64_t size = ::TIFFRawStripSize64(tiff.get(), 0);
    tiff.require(size > 0 && size <= ::TIFFGetSizeProc(tiff.get())(::TIFFClientdata(tiff.get())));
    std::string data(size, '\0');
    const tmsize_t got = ::TIFFReadRawStrip(tiff.get(), 0, data.data(), static_cast<tmsize_t>(size));
    tiff.require(got == static_cast<tmsize_t>(size));
    return data;
}

/// Group 4 fax, whose bits stand for ink where the image is a negative.
Pixels fax(const TiffFields& fields, std::string data) {
    if (fields.fill_order == FILLORDER_LSB2MSB)
        ::TIFFReverseBits(reinterpret_cast<std::uint8_t*>(data.data()), static_cast<tmsize_t>(data.size()));
    Pixels pixels = blank(fields, 1, 1);
    pixels.filter = "/CCITTFaxDecode";
    pixels.parameters = "<< /K -1 /Columns " + std::to_string(fields.width) + " /Rows " +
                        std::to_string(fields.height) + " /EndOfBlock false" +
                        (fields.is_negative() ? "" : " /BlackIs1 true") + " >>";
    hold(pixels, std::move(data));
    return pixels;
}

/// The same picture again as one piece of group 4 fax, which is what single bits compress to best.
Pixels fax_again(const TiffMemory& tiff, TiffFields fields) {
    const auto copy = TiffMemory::write();
    TIFF* const out = copy->get();
    ::TIFFSetField(out, TIFFTAG_IMAGEWIDTH, fields.width);
    ::TIFFSetField(out, TIFFTAG_IMAGELENGTH, fields.height);
    ::TIFFSetField(out, TIFFTAG_BITSPERSAMPLE, 1);
    ::TIFFSetField(out, TIFFTAG_SAMPLESPERPIXEL, 1);
    ::TIFFSetField(out, TIFFTAG_ROWSPERSTRIP, fields.height);
    ::TIFFSetField(out, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    ::TIFFSetField(out, TIFFTAG_PHOTOMETRIC, fields.photometric);
    ::TIFFSetField(out, TIFFTAG_FILLORDER, FILLORDER_MSB2LSB);
    std::string row(static_cast<std::size_t>(::TIFFScanlineSize(tiff.get())), '\0');
    for (std::uint32_t y = 0; y < fields.height; ++y) {
        tiff.require(::TIFFReadScanline(tiff.get(), row.data(), y) == 1);
        copy->require(::TIFFWriteScanline(out, row.data(), y) == 1);
    }
    const std::string file = copy->finish();
    fields.fill_order = FILLORDER_MSB2LSB;
    return fax(fields, only_piece(*TiffMemory::read(file)));
}

/// A JPEG whose tables are kept apart from it is put together again. That it holds red, green and blue stands
/// in the TIFF; by itself it needs a mark to say so.
Pixels jpeg(const TiffMemory& tiff, const TiffFields& fields) {
    using namespace std::string_view_literals;
    constexpr std::string_view start = "\xFF\xD8"sv;
    constexpr std::string_view as_stored =
        "\xFF\xEE\0\x0E"
        "Adobe\0\x64\0\0\0\0\0"sv;
    const std::string data = only_piece(tiff);
    std::string whole(start);
    if (fields.photometric == PHOTOMETRIC_RGB) whole += as_stored;
    std::uint32_t size = 0;
    const char* tables = nullptr;
    if (::TIFFGetField(tiff.get(), TIFFTAG_JPEGTABLES, &size, &tables) != 0 && size > 2 * start.size())
        whole.append(tables + start.size(), size - 2 * start.size());
    whole.append(data, std::min(data.size(), start.size()));
    const Picture picture = read_jpeg(Content(std::move(whole)));
    Pixels pixels = picture.pixels;
    if (pixels.width != fields.width || pixels.height != fields.height)
        throw ImageError("the TIFF holds a JPEG of another size");
    if (fields.is_negative() && pixels.colours.components == 1) pixels.decode = "[1 0]";
    return pixels;
}

/// Whether a PDF can hold the samples as they are.
bool fits_a_pdf(const TiffFields& fields) {
    if (fields.is_tiled || fields.format != SAMPLEFORMAT_UINT || fields.planes != PLANARCONFIG_CONTIG)
        return false;
    if (fields.extra_samples > 1 || (fields.extra_samples == 1 && fields.bits < 8)) return false;
    if (!std::has_single_bit(fields.stored_bits()) || fields.bits > 32) return false;
    switch (fields.photometric) {
        case PHOTOMETRIC_MINISWHITE:
        case PHOTOMETRIC_MINISBLACK:
            return fields.colours() == 1;
        case PHOTOMETRIC_PALETTE:
            return fields.colours() == 1 && fields.extra_samples == 0 && fields.bits <= 8;
        case PHOTOMETRIC_RGB:
            return fields.colours() == 3;
        case PHOTOMETRIC_SEPARATED:
            return fields.colours() == 4;
        default:
            return false;
    }
}

void swap_words(std::string& row) {
    for (std::size_t i = 0; i + 1 < row.size(); i += 2)
        std::swap(row[i], row[i + 1]);
}

/// Samples of 12 bits, one behind the other, as words, the upper byte first.
std::string words_of_12_bits(const std::string& row, std::size_t samples) {
    std::string words;
    words.reserve(2 * samples);
    const auto nibble = [&](std::size_t number) {
        const auto byte = static_cast<unsigned char>(row[number / 2]);
        return number % 2 == 0 ? byte >> 4U : byte & 0xFU;
    };
    for (std::size_t i = 0; i < samples; ++i) {
        const unsigned sample = nibble(3 * i) << 8U | nibble(3 * i + 1) << 4U | nibble(3 * i + 2);
        const unsigned word = sample << 4U | sample >> 8U;  // the largest stays the largest
        words += {static_cast<char>(word >> 8U), static_cast<char>(word & 0xFFU)};
    }
    return words;
}

/// The upper halves of samples of 32 bits in this machine's order, the upper byte first.
std::string upper_words(const std::string& row, std::size_t samples) {
    std::string words;
    words.reserve(2 * samples);
    for (std::size_t i = 0; i < samples; ++i) {
        std::uint32_t sample = 0;
        std::memcpy(&sample, row.data() + i * sizeof sample, sizeof sample);
        words += {static_cast<char>(sample >> 24U), static_cast<char>(sample >> 16U & 0xFFU)};
    }
    return words;
}

/// The next row as a PDF holds it.
void read_row(const TiffMemory& tiff, const TiffFields& fields, std::uint32_t y, std::string& row) {
    const std::size_t samples = std::size_t{fields.width} * fields.samples;
    row.resize(static_cast<std::size_t>(::TIFFScanlineSize(tiff.get())));
    tiff.require(row.size() * 8 >= samples * fields.bits &&
                 ::TIFFReadScanline(tiff.get(), row.data(), y) == 1);
    if (fields.bits == 12) row = words_of_12_bits(row, samples);
    if (fields.bits == 32) row = upper_words(row, samples);
    if (fields.bits == 16 && std::endian::native == std::endian::little) swap_words(row);
}

Row as_row(const std::string& bytes) {
    return {reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()};
}

std::string predicted(const TiffFields& fields, int components) {
    return "<< /Predictor 15 /Colors " + std::to_string(components) + " /BitsPerComponent " +
           std::to_string(fields.stored_bits()) + " /Columns " + std::to_string(fields.width) + " >>";
}

/// Parts colours from opacity, row by row.
void deflate_samples(const TiffMemory& tiff, const TiffFields& fields, Picture& picture) {
    const int components = fields.colours();
    const bool is_flat = fields.bits < 8 || fields.photometric == PHOTOMETRIC_PALETTE;
    const std::size_t sample = std::max<std::size_t>(1, fields.stored_bits() / 8);
    const std::size_t colour_size = sample * static_cast<std::size_t>(components);
    const std::size_t pixel_size = sample * fields.samples;
    RowCompressor colours(is_flat ? Prediction::none : Prediction::chosen, colour_size);
    RowCompressor opacity(Prediction::none, sample);
    const bool is_parted = fields.extra_samples > 0;
    std::string row;
    std::string colour_row(is_parted ? fields.width * colour_size : 0, '\0');
    std::string opacity_row(is_parted ? fields.width * sample : 0, '\0');
    for (std::uint32_t y = 0; y < fields.height; ++y) {
        read_row(tiff, fields, y, row);
        for (std::size_t x = 0; is_parted && x < fields.width; ++x) {
            std::memcpy(colour_row.data() + x * colour_size, row.data() + x * pixel_size, colour_size);
            std::memcpy(opacity_row.data() + x * sample, row.data() + x * pixel_size + colour_size, sample);
        }
        colours.add(as_row(is_parted ? colour_row : row));
        if (fields.has_opacity()) opacity.add(as_row(opacity_row));
    }
    picture.pixels = blank(fields, components, static_cast<int>(fields.stored_bits()));
    picture.pixels.filter = "/FlateDecode";
    if (!is_flat) picture.pixels.parameters = predicted(fields, components);
    hold(picture.pixels, colours.finish());
    if (!fields.has_opacity()) return;
    picture.opacity = blank(fields, 1, static_cast<int>(fields.stored_bits()));
    picture.opacity->filter = "/FlateDecode";
    hold(*picture.opacity, opacity.finish());
    if (fields.extra_kind != EXTRASAMPLE_ASSOCALPHA) return;
    picture.opacity->matte = components == 1 ? "[0]" : components == 3 ? "[0 0 0]" : "[0 0 0 0]";
}

/// Everything else as libtiff turns it into red, green and blue.
void deflate_as_rgb(const TiffMemory& tiff, const TiffFields& fields, Picture& picture) {
    std::vector<std::uint32_t> all(std::size_t{fields.width} * fields.height);
    tiff.require(::TIFFReadRGBAImageOriented(tiff.get(), fields.width, fields.height, all.data(),
                                             ORIENTATION_TOPLEFT, 1) == 1);
    RowCompressor colours(Prediction::chosen, 3);
    std::string row(std::size_t{3} * fields.width, '\0');
    for (std::size_t y = 0; y < fields.height; ++y) {
        for (std::size_t x = 0; x < fields.width; ++x) {
            const std::uint32_t pixel = all[y * fields.width + x];
            row[3 * x] = static_cast<char>(TIFFGetR(pixel));
            row[3 * x + 1] = static_cast<char>(TIFFGetG(pixel));
            row[3 * x + 2] = static_cast<char>(TIFFGetB(pixel));
        }
        colours.add(as_row(row));
    }
    picture.orientation = 1;  // libtiff has turned it
    picture.pixels = blank(fields, 3, 8);
    picture.pixels.filter = "/FlateDecode";
    picture.pixels.parameters =
        "<< /Predictor 15 /Colors 3 /BitsPerComponent 8 /Columns " + std::to_string(fields.width) + " >>";
    hold(picture.pixels, colours.finish());
}

bool is_copied_jpeg(const TiffFields& fields) {
    return fields.compression == COMPRESSION_JPEG && fields.is_one_piece && fields.bits == 8 &&
           fields.planes == PLANARCONFIG_CONTIG && fields.extra_samples == 0;
}

Picture read_picture(const TiffMemory& tiff) {
    const TiffFields fields = read_fields(tiff);
    Picture picture;
    picture.resolution = read_resolution(tiff);
    picture.orientation = read_orientation(tiff);
    if (fields.is_single_bits() && fields.is_one_piece && fields.compression == COMPRESSION_CCITTFAX4) {
        picture.pixels = fax(fields, only_piece(tiff));
    } else if (is_copied_jpeg(fields)) {
        picture.pixels = jpeg(tiff, fields);
    } else if (fields.is_single_bits()) {
        picture.pixels = fax_again(tiff, fields);
    } else if (fits_a_pdf(fields) && fields.compression != COMPRESSION_OJPEG) {
        deflate_samples(tiff, fields, picture);
        if (fields.photometric == PHOTOMETRIC_PALETTE) {
            picture.pixels.colours.components = 3;
            picture.pixels.colours.palette = read_palette(tiff, fields.bits);
        } else if (fields.is_negative()) {
            picture.pixels.decode = "[1 0]";
        }
    } else {
        deflate_as_rgb(tiff, fields, picture);
    }
    Colours& colours = picture.pixels.colours;
    colours.icc_profile = read_profile(tiff, colours.components);
    return picture;
}

}  // namespace

std::vector<Picture> read_tiff(const Content& file) {
    const auto tiff = TiffMemory::read(file.bytes());
    std::vector<Picture> pictures;
    do {
        if (!is_reduced_copy(*tiff)) pictures.push_back(read_picture(*tiff));
    } while (::TIFFLastDirectory(tiff->get()) == 0 &&
             (tiff->require(::TIFFReadDirectory(tiff->get()) == 1), true));
    if (pictures.empty()) throw ImageError("the TIFF holds no image");
    return pictures;
}

}  // namespace foliant::hosts::acrobat::images
