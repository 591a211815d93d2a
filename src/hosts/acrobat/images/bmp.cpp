#include "hosts/acrobat/images/bmp.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <vector>

#include "hosts/acrobat/images/byte_reader.h"
#include "hosts/acrobat/images/image_error.h"
#include "hosts/acrobat/images/row_compressor.h"

namespace foliant::hosts::acrobat::images {
namespace {

enum Compression : std::uint32_t { none = 0, runs_of_8 = 1, runs_of_4 = 2, bit_fields = 3, all_fields = 6 };

constexpr std::size_t file_header = 14;
constexpr std::size_t core_header = 12;  // of OS/2
constexpr std::size_t info_header = 40;
constexpr std::size_t header_with_opacity = 56;

/// Which bits of a pixel are one component.
struct Field {
    std::uint32_t mask = 0;

    /// Its value in `pixel`, from 0 to 255.
    unsigned char value(std::uint32_t pixel) const {
        if (mask == 0) return 0;
        const std::uint32_t value = (pixel & mask) >> std::countr_zero(mask);
        const std::uint64_t most = mask >> std::countr_zero(mask);
        return static_cast<unsigned char>((value * std::uint64_t{255} + most / 2) / most);
    }
};

struct Bitmap {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    bool is_top_down = false;
    int bits = 0;  ///< of a pixel
    Compression compression = none;
    Resolution resolution;
    std::string palette;
    Field red, green, blue, opacity;
    std::string_view rows;

    bool has_palette() const { return bits <= 8; }
    std::size_t row_bytes() const {
        return (std::size_t{width} * static_cast<std::size_t>(bits) + 31) / 32 * 4;
    }
};

[[noreturn]] void fail(const std::string& what) {
    throw ImageError("the bitmap " + what);
}

void read_palette(const ByteReader& file, std::size_t at, std::size_t entry_size, std::size_t count,
                  Bitmap& bitmap) {
    const std::size_t most = std::size_t{1} << static_cast<unsigned>(bitmap.bits);
    count = count == 0 ? most : std::min(count, most);
    for (std::size_t i = 0; i < count; ++i)
        for (const std::size_t part : {2U, 1U, 0U})  // blue comes first
            bitmap.palette += static_cast<char>(file.byte(at + i * entry_size + part));
}

void read_fields(const ByteReader& file, std::size_t header, Bitmap& bitmap) {
    if (bitmap.compression == bit_fields || bitmap.compression == all_fields) {
        const std::size_t at = file_header + info_header;  // in the header, or right behind it
        bitmap.red.mask = file.dword(at);
        bitmap.green.mask = file.dword(at + 4);
        bitmap.blue.mask = file.dword(at + 8);
        if (header >= header_with_opacity || bitmap.compression == all_fields)
            bitmap.opacity.mask = file.dword(at + 12);
    } else if (bitmap.bits == 16) {
        bitmap.red.mask = 0x7C00;
        bitmap.green.mask = 0x03E0;
        bitmap.blue.mask = 0x001F;
    } else {
        bitmap.red.mask = 0xFF0000;
        bitmap.green.mask = 0x00FF00;
        bitmap.blue.mask = 0x0000FF;
    }
}

void read_info_header(const ByteReader& file, Bitmap& bitmap) {
    const std::int64_t width = file.signed_dword(file_header + 4);
    const std::int64_t height = file.signed_dword(file_header + 8);
    if (width <= 0) fail("has no pixels");
    bitmap.width = static_cast<std::uint32_t>(width);
    bitmap.height = static_cast<std::uint32_t>(height < 0 ? -height : height);
    bitmap.is_top_down = height < 0;
    bitmap.bits = file.word(file_header + 14);
    bitmap.compression = static_cast<Compression>(file.dword(file_header + 16));
    bitmap.resolution = dots_a_metre(file.dword(file_header + 24), file.dword(file_header + 28));
}

void require_known_kind(const Bitmap& bitmap) {
    const auto has_bits = [&](std::initializer_list<int> bits) {
        return std::find(bits.begin(), bits.end(), bitmap.bits) != bits.end();
    };
    const bool is_known = bitmap.compression == none        ? has_bits({1, 4, 8, 16, 24, 32})
                          : bitmap.compression == runs_of_8 ? has_bits({8})
                          : bitmap.compression == runs_of_4 ? has_bits({4})
                          : bitmap.compression == bit_fields || bitmap.compression == all_fields
                              ? has_bits({16, 32})
                              : false;
    if (!is_known)
        fail("is of a kind that is not read here (" + std::to_string(bitmap.bits) + " bits, compression " +
             std::to_string(bitmap.compression) + ")");
}

Bitmap read_headers(const ByteReader& file) {
    Bitmap bitmap;
    const std::size_t header = file.dword(file_header);
    std::size_t colours = 0;
    if (header == core_header) {
        bitmap.width = file.word(file_header + 4);
        bitmap.height = file.word(file_header + 6);
        bitmap.bits = file.word(file_header + 10);
    } else {
        read_info_header(file, bitmap);
        colours = file.dword(file_header + 32);
    }
    require_known_kind(bitmap);
    require_reasonable_size(bitmap.width, bitmap.height, "bitmap");
    if (bitmap.has_palette())
        read_palette(file, file_header + header, header == core_header ? 3 : 4, colours, bitmap);
    else
        read_fields(file, header, bitmap);
    bitmap.rows = file.slice(file.dword(10), file.size());
    return bitmap;
}

/// The indexes of a bitmap that is compressed by runs, a byte each, top row first.
class RunReader {
  public:
    RunReader(const Bitmap& bitmap)
        : bitmap_(bitmap),
          codes_(bitmap.rows, ByteReader::Order::little_endian),
          pixels_(std::size_t{bitmap.width} * bitmap.height) {}

    std::vector<unsigned char> read() {
        while (!is_over_) {
            if (at_ + 2 > codes_.size()) fail("is cut off before its end");
            const std::uint8_t count = codes_.byte(at_);
            const std::uint8_t value = codes_.byte(at_ + 1);
            at_ += 2;
            if (count > 0)
                for (std::size_t i = 0; i < count; ++i)
                    put(bitmap_.bits == 8 ? value : half(value, i));
            else
                escape(value);
        }
        return std::move(pixels_);
    }

  private:
    static std::uint8_t half(std::uint8_t byte, std::size_t place) {
        return place % 2 == 0 ? byte >> 4U : byte & 0xFU;
    }

    void put(std::uint8_t index) {
        if (x_ < bitmap_.width && y_ < bitmap_.height)
            pixels_[std::size_t{bitmap_.height - 1 - y_} * bitmap_.width + x_] = index;
        ++x_;
    }

    void escape(std::uint8_t code) {
        enum Code : std::uint8_t { end_of_row, end, move };
        switch (code) {
            case end_of_row:
                x_ = 0;
                is_over_ = ++y_ > bitmap_.height;
                break;
            case end:
                is_over_ = true;
                break;
            case move:
                x_ += codes_.byte(at_);
                y_ += codes_.byte(at_ + 1);
                at_ += 2;
                break;
            default:
                put_as_they_are(code);
        }
    }

    void put_as_they_are(std::size_t count) {
        const std::size_t bytes = bitmap_.bits == 8 ? count : (count + 1) / 2;
        if (at_ + bytes > codes_.size()) fail("is cut off before its end");
        for (std::size_t i = 0; i < count; ++i)
            put(bitmap_.bits == 8 ? codes_.byte(at_ + i) : half(codes_.byte(at_ + i / 2), i));
        at_ += bytes + bytes % 2;
    }

    const Bitmap& bitmap_;
    ByteReader codes_;
    std::vector<unsigned char> pixels_;
    std::size_t at_ = 0;
    std::size_t x_ = 0;
    std::size_t y_ = 0;
    bool is_over_ = false;
};

Row stored_row(const Bitmap& bitmap, std::size_t y) {
    const std::size_t place = bitmap.is_top_down ? y : bitmap.height - 1 - y;
    const auto* bytes = reinterpret_cast<const unsigned char*>(bitmap.rows.data());
    return {bytes + place * bitmap.row_bytes(), bitmap.row_bytes()};
}

std::uint32_t pixel_at(Row row, std::size_t x, std::size_t size) {
    std::uint32_t pixel = 0;
    for (std::size_t i = size; i-- > 0;)
        pixel = pixel << 8U | row[x * size + i];
    return pixel;
}

Pixels deflated(const Bitmap& bitmap, int components, int bits) {
    Pixels pixels;
    pixels.width = bitmap.width;
    pixels.height = bitmap.height;
    pixels.bits = bits;
    pixels.colours.components = components;
    pixels.filter = "/FlateDecode";
    return pixels;
}

void hold(Pixels& pixels, RowCompressor& compressor) {
    pixels.content = Content(compressor.finish());
    pixels.pieces = {pixels.content.bytes()};
}

Pixels indexes(const Bitmap& bitmap) {
    const bool is_run = bitmap.compression == runs_of_8 || bitmap.compression == runs_of_4;
    Pixels pixels = deflated(bitmap, 3, is_run ? 8 : bitmap.bits);
    pixels.colours.palette = bitmap.palette;
    RowCompressor compressor(RowCompressor::Prediction::none, 1);
    if (is_run) {
        const std::vector<unsigned char> all = RunReader(bitmap).read();
        for (std::size_t y = 0; y < bitmap.height; ++y)
            compressor.add(Row(all).subspan(y * bitmap.width, bitmap.width));
    } else {
        const std::size_t used = (std::size_t{bitmap.width} * static_cast<std::size_t>(bitmap.bits) + 7) / 8;
        for (std::size_t y = 0; y < bitmap.height; ++y)
            compressor.add(stored_row(bitmap, y).first(used));
    }
    hold(pixels, compressor);
    return pixels;
}

Pixels colours(const Bitmap& bitmap) {
    Pixels pixels = deflated(bitmap, 3, 8);
    pixels.parameters =
        "<< /Predictor 15 /Colors 3 /BitsPerComponent 8 /Columns " + std::to_string(bitmap.width) + " >>";
    RowCompressor compressor(RowCompressor::Prediction::chosen, 3);
    std::vector<unsigned char> row(std::size_t{3} * bitmap.width);
    const auto size = static_cast<std::size_t>(bitmap.bits) / 8;
    for (std::size_t y = 0; y < bitmap.height; ++y) {
        const Row stored = stored_row(bitmap, y);
        for (std::size_t x = 0; x < bitmap.width; ++x) {
            const std::uint32_t pixel = pixel_at(stored, x, size);
            row[3 * x] = bitmap.red.value(pixel);
            row[3 * x + 1] = bitmap.green.value(pixel);
            row[3 * x + 2] = bitmap.blue.value(pixel);
        }
        compressor.add(row);
    }
    hold(pixels, compressor);
    return pixels;
}

Pixels opacity(const Bitmap& bitmap) {
    Pixels pixels = deflated(bitmap, 1, 8);
    RowCompressor compressor(RowCompressor::Prediction::none, 1);
    std::vector<unsigned char> row(bitmap.width);
    const auto size = static_cast<std::size_t>(bitmap.bits) / 8;
    for (std::size_t y = 0; y < bitmap.height; ++y) {
        const Row stored = stored_row(bitmap, y);
        for (std::size_t x = 0; x < bitmap.width; ++x)
            row[x] = bitmap.opacity.value(pixel_at(stored, x, size));
        compressor.add(row);
    }
    hold(pixels, compressor);
    return pixels;
}

/// What is stored pixel by pixel has to be there; of runs it shows when they are read.
void require_all_rows(const Bitmap& bitmap) {
    if (bitmap.compression == runs_of_8 || bitmap.compression == runs_of_4) {
        // Runs may leave out whole areas, but nobody draws so little on so large a sheet.
        constexpr std::size_t small = std::size_t{1} << 26U;
        constexpr std::size_t most_pixels_a_byte = 1024;
        const std::size_t pixels = std::size_t{bitmap.width} * bitmap.height;
        if (pixels > small && pixels / most_pixels_a_byte > bitmap.rows.size())
            fail("claims " + std::to_string(bitmap.width) + " x " + std::to_string(bitmap.height) +
                 " pixels and does not hold them");
    } else if (bitmap.rows.size() <
               bitmap.row_bytes() * (bitmap.height - 1) +
                   (std::size_t{bitmap.width} * static_cast<std::size_t>(bitmap.bits) + 7) / 8) {
        fail("is cut off before its end");
    }
}

}  // namespace

Picture read_bmp(const Content& file) {
    const Bitmap bitmap = read_headers({file.bytes(), ByteReader::Order::little_endian});
    require_all_rows(bitmap);
    Picture picture;
    picture.resolution = bitmap.resolution;
    picture.pixels = bitmap.has_palette() ? indexes(bitmap) : colours(bitmap);
    if (bitmap.opacity.mask != 0) picture.opacity = opacity(bitmap);
    return picture;
}

}  // namespace foliant::hosts::acrobat::images
