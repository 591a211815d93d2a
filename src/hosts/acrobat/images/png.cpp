#include "hosts/acrobat/images/png.h"

#include <algorithm>
#include <optional>

#include "hosts/acrobat/images/byte_reader.h"
#include "hosts/acrobat/images/png_chunks.h"
#include "hosts/acrobat/images/png_rows.h"
#include "hosts/acrobat/images/row_compressor.h"

namespace foliant::hosts::acrobat::images {
namespace {

using Prediction = RowCompressor::Prediction;

std::string predicted(int components, int bits, std::uint32_t width) {
    return "<< /Predictor 15 /Colors " + std::to_string(components) + " /BitsPerComponent " +
           std::to_string(bits) + " /Columns " + std::to_string(width) + " >>";
}

void hold(Pixels& pixels, std::string compressed) {
    pixels.content = Content(std::move(compressed));
    pixels.pieces = {pixels.content.bytes()};
}

/// Pixels of the image's size, as deflated rows.
Pixels deflated(const PngChunks& png, int components, int bits, Prediction prediction) {
    Pixels pixels;
    pixels.width = png.width;
    pixels.height = png.height;
    pixels.bits = bits;
    pixels.colours.components = components;
    pixels.filter = "/FlateDecode";
    if (prediction != Prediction::none) pixels.parameters = predicted(components, bits, png.width);
    return pixels;
}

/// A whole range of 0 to 255, as many as the palette has colours.
std::string opacities(const PngChunks& png) {
    std::string opacities(png.transparency.substr(0, png.colours.size() / 3));
    opacities.resize(png.colours.size() / 3, '\xFF');
    return opacities;
}

/// The range of indexes that are fully transparent when all others are fully opaque.
std::optional<std::string> transparent_range(const std::string& opacities) {
    const auto first = opacities.find_first_not_of('\xFF');
    const auto last = opacities.find_last_not_of('\xFF');
    if (first == std::string::npos) return std::string();
    for (std::size_t i = first; i <= last; ++i)
        if (opacities[i] != '\0') return std::nullopt;
    return "[" + std::to_string(first) + " " + std::to_string(last) + "]";
}

/// The opacity of every pixel, from that of its index.
Pixels opacity_of_indexes(const PngChunks& png, const std::string& opacities) {
    Pixels mask = deflated(png, 1, 8, Prediction::none);
    RowCompressor compressor(Prediction::none, 1);
    std::vector<unsigned char> row(png.width);
    const auto bits = static_cast<std::size_t>(png.bits);
    read_pixel_rows(png, [&](Row indexes) {
        for (std::size_t x = 0; x < row.size(); ++x) {
            const std::size_t shift = 8 - bits - x * bits % 8;
            const std::size_t index = std::size_t{indexes[x * bits / 8]} >> shift & ((1U << bits) - 1U);
            row[x] = index < opacities.size() ? static_cast<unsigned char>(opacities[index]) : 0xFF;
        }
        compressor.add(row);
    });
    hold(mask, compressor.finish());
    return mask;
}

/// The one colour of the image that is seen through.
std::string transparent_colour(const PngChunks& png) {
    const ByteReader stored(png.transparency, ByteReader::Order::big_endian);
    const auto count = static_cast<std::size_t>(png.components());
    if (stored.size() < 2 * count) return {};
    std::string range = "[";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string value = std::to_string(stored.word(2 * i) & ((1U << png.bits) - 1U));
        range += value + " " + value + " ";
    }
    range.back() = ']';
    return range;
}

void add_transparency(const PngChunks& png, Picture& picture) {
    if (!png.has_transparency || png.has_opacity()) return;
    if (png.kind != PngChunks::palette) {
        picture.pixels.colour_key = transparent_colour(png);
        return;
    }
    const std::string opacity = opacities(png);
    if (const auto range = transparent_range(opacity))
        picture.pixels.colour_key = *range;
    else
        picture.opacity = opacity_of_indexes(png, opacity);
}

/// Parts the colours of each pixel from its opacity.
void separate_opacity(const PngChunks& png, Picture& picture) {
    const std::size_t size = static_cast<std::size_t>(png.bits) / 8;
    const int components = png.components() - 1;
    const std::size_t colour_size = size * static_cast<std::size_t>(components);
    const Prediction prediction = png.is_interlaced ? Prediction::chosen : Prediction::given;
    const std::size_t filter_byte = png.is_interlaced ? 0 : 1;
    RowCompressor colours(prediction, colour_size);
    RowCompressor opacity(prediction, size);
    std::vector<unsigned char> colour_row(filter_byte + png.width * colour_size);
    std::vector<unsigned char> opacity_row(filter_byte + png.width * size);
    const auto take = [&](Row row) {
        auto from = row.begin();
        auto to_colour = colour_row.begin();
        auto to_opacity = opacity_row.begin();
        if (filter_byte != 0) *to_colour++ = *to_opacity++ = *from++;
        while (from != row.end()) {
            to_colour = std::copy_n(from, colour_size, to_colour);
            from += static_cast<std::ptrdiff_t>(colour_size);
            to_opacity = std::copy_n(from, size, to_opacity);
            from += static_cast<std::ptrdiff_t>(size);
        }
        colours.add(colour_row);
        opacity.add(opacity_row);
    };
    png.is_interlaced ? read_pixel_rows(png, take) : read_stored_rows(png, take);
    picture.pixels = deflated(png, components, png.bits, prediction);
    hold(picture.pixels, colours.finish());
    picture.opacity = deflated(png, 1, png.bits, prediction);
    hold(*picture.opacity, opacity.finish());
}

/// The pixels in their natural order.
void straighten(const PngChunks& png, Pixels& pixels) {
    const bool is_flat = png.kind == PngChunks::palette || png.bits < 8;
    const Prediction prediction = is_flat ? Prediction::none : Prediction::chosen;
    RowCompressor compressor(prediction, png.pixel_bytes());
    read_pixel_rows(png, [&](Row row) { compressor.add(row); });
    pixels = deflated(png, png.components(), png.bits, prediction);
    hold(pixels, compressor.finish());
}

void copy(const PngChunks& png, const Content& file, Pixels& pixels) {
    pixels = deflated(png, png.components(), png.bits, Prediction::given);
    pixels.content = file;
    pixels.pieces = png.data;
}

}  // namespace

Picture read_png(const Content& file) {
    const PngChunks png = read_png_chunks(file.bytes());
    Picture picture;
    picture.resolution = png.resolution.across > 0 ? png.resolution : png.exif.resolution;
    picture.orientation = png.exif.orientation;
    if (png.has_opacity())
        separate_opacity(png, picture);
    else if (png.is_interlaced)
        straighten(png, picture.pixels);
    else
        copy(png, file, picture.pixels);
    Colours& colours = picture.pixels.colours;
    if (png.kind == PngChunks::palette) {
        colours.components = 3;
        colours.palette = png.colours.substr(0, std::size_t{3} << static_cast<unsigned>(png.bits));
    }
    if (components_of_profile(png.icc_profile) == colours.components) colours.icc_profile = png.icc_profile;
    add_transparency(png, picture);
    return picture;
}

}  // namespace foliant::hosts::acrobat::images
