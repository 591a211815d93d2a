#include "hosts/acrobat/images/png_rows.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <new>
#include <span>
#include <zlib.h>

#include "hosts/acrobat/images/image_error.h"

namespace foliant::hosts::acrobat::images {
namespace {

/// The decompressed data of an image, piece by piece.
class Inflater {
  public:
    explicit Inflater(const std::vector<std::string_view>& pieces) : pieces_(pieces) {
        if (::inflateInit(&stream_) != Z_OK) throw std::bad_alloc();
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;
    ~Inflater() { ::inflateEnd(&stream_); }

    /// Fills all of `bytes`.
    void read(std::span<unsigned char> bytes) {
        while (!bytes.empty()) {
            const std::size_t now = std::min<std::size_t>(bytes.size(), std::numeric_limits<uInt>::max());
            stream_.next_out = bytes.data();
            stream_.avail_out = static_cast<uInt>(now);
            refill();
            const int result = ::inflate(&stream_, Z_NO_FLUSH);
            const std::size_t got = now - stream_.avail_out;
            const bool can_go_on = result == Z_OK || result == Z_BUF_ERROR;
            const bool has_more = stream_.avail_in > 0 || next_ < pieces_.size();
            if (got == 0 && !(can_go_on && has_more))
                throw ImageError("the PNG has fewer rows than it claims");
            bytes = bytes.subspan(got);
        }
    }

  private:
    void refill() {
        while (stream_.avail_in == 0 && next_ < pieces_.size()) {
            const std::string_view piece = pieces_[next_++];
            stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
            stream_.avail_in = static_cast<uInt>(piece.size());
        }
    }

    const std::vector<std::string_view>& pieces_;
    std::size_t next_ = 0;
    z_stream stream_{};
};

/// The predictor of two neighbours and the one between them that is nearest to their plane.
unsigned paeth(unsigned left, unsigned above, unsigned corner) {
    const int plane = static_cast<int>(left + above) - static_cast<int>(corner);
    const auto distance = [plane](unsigned value) { return std::abs(plane - static_cast<int>(value)); };
    if (distance(left) <= distance(above) && distance(left) <= distance(corner)) return left;
    return distance(above) <= distance(corner) ? above : corner;
}

/// Undoes the prediction of a row in place; `above` has as many bytes.
void undo(unsigned filter, std::span<unsigned char> row, Row above, std::size_t pixel_bytes) {
    enum Filter : unsigned { none, sub, up, average, nearest };
    for (std::size_t i = 0; i < row.size(); ++i) {
        const unsigned left = i >= pixel_bytes ? row[i - pixel_bytes] : 0U;
        const unsigned corner = i >= pixel_bytes ? above[i - pixel_bytes] : 0U;
        unsigned predicted = 0;
        switch (filter) {
            case none:
                return;
            case sub:
                predicted = left;
                break;
            case up:
                predicted = above[i];
                break;
            case average:
                predicted = (left + above[i]) / 2;
                break;
            case nearest:
                predicted = paeth(left, above[i], corner);
                break;
            default:
                throw ImageError("the PNG has a row of a kind that does not exist");
        }
        row[i] = static_cast<unsigned char>(row[i] + predicted);
    }
}

/// Reads `height` rows of `width` pixels, and hands out their pixels.
void read_rows(const PngChunks& png, Inflater& data, std::uint32_t width, std::uint32_t height,
               const TakeRow& take) {
    std::vector<unsigned char> row(1 + png.row_bytes(width));
    std::vector<unsigned char> above(row.size());
    for (std::uint32_t i = 0; i < height; ++i) {
        data.read(row);
        const auto pixels = std::span(row).subspan(1);
        undo(row[0], pixels, Row(above).subspan(1), png.pixel_bytes());
        take(pixels);
        std::swap(row, above);
    }
}

/// One of the seven sparse images of an interlaced one.
struct Pass {
    std::uint32_t left;
    std::uint32_t top;
    std::uint32_t across;
    std::uint32_t down;
};
constexpr std::array<Pass, 7> passes{{
    {0, 0, 8, 8},
    {4, 0, 8, 8},
    {0, 4, 4, 8},
    {2, 0, 4, 4},
    {0, 2, 2, 4},
    {1, 0, 2, 2},
    {0, 1, 1, 2},
}};

/// Puts the pixels of a pass where they belong in a row of the whole.
void spread(Row from, std::span<unsigned char> to, const Pass& pass, std::uint32_t count,
            unsigned pixel_bits) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t place = pass.left + i * pass.across;
        if (pixel_bits >= 8) {
            const std::size_t size = pixel_bits / 8;
            std::copy_n(from.begin() + static_cast<std::ptrdiff_t>(i * size), size,
                        to.begin() + static_cast<std::ptrdiff_t>(place * size));
            continue;
        }
        const auto shift = [&](std::size_t pixel) { return 8 - pixel_bits - pixel * pixel_bits % 8; };
        const unsigned value =
            static_cast<unsigned>(from[i * pixel_bits / 8]) >> shift(i) & ((1U << pixel_bits) - 1);
        unsigned char& byte = to[place * pixel_bits / 8];
        byte = static_cast<unsigned char>(byte | value << shift(place));
    }
}

}  // namespace

void read_stored_rows(const PngChunks& png, const TakeRow& take) {
    Inflater data(png.data);
    std::vector<unsigned char> row(1 + png.row_bytes(png.width));
    for (std::uint32_t i = 0; i < png.height; ++i) {
        data.read(row);
        take(row);
    }
}

void read_pixel_rows(const PngChunks& png, const TakeRow& take) {
    Inflater data(png.data);
    if (!png.is_interlaced) return read_rows(png, data, png.width, png.height, take);
    const std::size_t row_bytes = png.row_bytes(png.width);
    std::vector<unsigned char> whole(row_bytes * png.height);
    for (const Pass& pass : passes) {
        if (pass.left >= png.width || pass.top >= png.height) continue;
        const std::uint32_t width = (png.width - pass.left + pass.across - 1) / pass.across;
        const std::uint32_t height = (png.height - pass.top + pass.down - 1) / pass.down;
        std::size_t y = pass.top;
        read_rows(png, data, width, height, [&](Row row) {
            spread(row, std::span(whole).subspan(y * row_bytes, row_bytes), pass, width,
                   static_cast<unsigned>(png.components() * png.bits));
            y += pass.down;
        });
    }
    for (std::size_t y = 0; y < png.height; ++y)
        take(Row(whole).subspan(y * row_bytes, row_bytes));
}

}  // namespace foliant::hosts::acrobat::images
