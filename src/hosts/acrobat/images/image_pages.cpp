#include "hosts/acrobat/images/image_pages.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "hosts/acrobat/images/bmp.h"
#include "hosts/acrobat/images/byte_reader.h"
#include "hosts/acrobat/images/gif.h"
#include "hosts/acrobat/images/jpeg.h"
#include "hosts/acrobat/images/picture_page.h"
#include "hosts/acrobat/images/png.h"
#include "hosts/acrobat/images/tiff.h"

namespace foliant::hosts::acrobat::images {
namespace {

using namespace std::string_view_literals;

enum class Kind { jpeg, png, tiff, bmp, gif };

/// Two letters are little to go by: what follows them has to be a header, too.
bool is_bitmap(std::string_view bytes) {
    constexpr std::array<std::uint32_t, 7> header_sizes{12, 40, 52, 56, 64, 108, 124};
    const std::uint32_t header = ByteReader(bytes, ByteReader::Order::little_endian).dword(14);
    return bytes.starts_with("BM") &&
           std::find(header_sizes.begin(), header_sizes.end(), header) != header_sizes.end();
}

std::optional<Kind> kind_of(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xD8\xFF"sv)) return Kind::jpeg;
    if (bytes.starts_with("\x89PNG\r\n\x1A\n"sv)) return Kind::png;
    for (const std::string_view signature : {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv})
        if (bytes.starts_with(signature)) return Kind::tiff;
    if (bytes.starts_with("GIF87a"sv) || bytes.starts_with("GIF89a"sv)) return Kind::gif;
    return is_bitmap(bytes) ? std::optional(Kind::bmp) : std::nullopt;
}

std::vector<Picture> read_pictures(const Content& file) {
    const std::optional<Kind> kind = kind_of(file.bytes());
    if (!kind) throw ImageError("it is no image of a kind that is known here (JPEG, PNG, TIFF, BMP, GIF)");
    switch (*kind) {
        case Kind::jpeg:
            return {read_jpeg(file)};
        case Kind::png:
            return {read_png(file)};
        case Kind::bmp:
            return {read_bmp(file)};
        case Kind::gif:
            return {read_gif(file)};
        case Kind::tiff:
            break;
    }
    return read_tiff(file);
}

}  // namespace

bool is_image(std::string_view bytes) {
    return kind_of(bytes).has_value();
}

void add_image_pages(QPDF& pdf, const Content& file) {
    const std::vector<Picture> pictures = read_pictures(file);
    pdf.getRoot().replaceKey("/Version", QPDFObjectHandle::newName("/1.6"));
    for (const Picture& picture : pictures)
        add_page(pdf, picture);
}

}  // namespace foliant::hosts::acrobat::images
