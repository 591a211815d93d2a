#include "hosts/acrobat/images/jpeg.h"

#include <algorithm>
#include <map>
#include <vector>

#include "hosts/acrobat/images/byte_reader.h"
#include "hosts/acrobat/images/exif.h"
#include "hosts/acrobat/images/image_error.h"

namespace foliant::hosts::acrobat::images {
namespace {

enum Marker : std::uint8_t {
    baseline = 0xC0,
    extended = 0xC1,
    progressive = 0xC2,
    huffman_tables = 0xC4,
    extension = 0xC8,
    arithmetic_tables = 0xCC,
    last_frame = 0xCF,
    first_restart = 0xD0,
    last_restart = 0xD7,
    image_start = 0xD8,
    image_end = 0xD9,
    scan_start = 0xDA,
    app0 = 0xE0,
    app1 = 0xE1,
    app2 = 0xE2,
    app14 = 0xEE,
};

/// What the segments of a JPEG say.
struct Segments {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int components = 0;
    std::string component_names;
    bool has_jfif = false;
    bool has_adobe = false;
    Resolution jfif_resolution;
    Exif exif;
    std::map<int, std::string_view> profile;  ///< parts, by their number
    bool has_scan = false;
    std::size_t end = 0;  ///< behind the end mark
};

bool is_frame(std::uint8_t marker) {
    return marker >= baseline && marker <= last_frame && marker != huffman_tables && marker != extension &&
           marker != arithmetic_tables;
}

void read_frame(std::uint8_t marker, const ByteReader& segment, Segments& found) {
    if (found.components != 0) throw ImageError("the JPEG holds a hierarchy of images");
    if (marker != baseline && marker != extended && marker != progressive)
        throw ImageError("the JPEG is of a kind (lossless or arithmetically coded) that PDF does not have");
    if (segment.byte(0) != 8)
        throw ImageError("the JPEG has " + std::to_string(segment.byte(0)) +
                         " bits a component, and PDF has JPEGs of 8 only");
    found.height = segment.word(1);
    found.width = segment.word(3);
    found.components = segment.byte(5);
    for (int i = 0; i < found.components; ++i)
        found.component_names += static_cast<char>(segment.byte(6 + 3 * static_cast<std::size_t>(i)));
}

void read_jfif(const ByteReader& segment, Segments& found) {
    constexpr double centimetres_an_inch = 2.54;
    constexpr std::size_t unit_at = 7;
    found.has_jfif = true;
    const int unit = segment.byte(unit_at);
    if (unit != 1 && unit != 2) return;  // proportions only
    const double scale = unit == 2 ? centimetres_an_inch : 1;
    found.jfif_resolution = {segment.word(unit_at + 1) * scale, segment.word(unit_at + 3) * scale};
}

void read_segment(std::uint8_t marker, std::string_view bytes, Segments& found) {
    using namespace std::string_view_literals;
    constexpr std::string_view exif = "Exif\0\0"sv;
    constexpr std::string_view profile = "ICC_PROFILE\0"sv;
    const ByteReader segment(bytes, ByteReader::Order::big_endian);
    if (is_frame(marker)) return read_frame(marker, segment, found);
    if (marker == app0 && bytes.starts_with("JFIF\0"sv)) return read_jfif(segment, found);
    if (marker == app1 && bytes.starts_with(exif)) {
        found.exif = read_exif(bytes.substr(exif.size()));
    } else if (marker == app2 && bytes.starts_with(profile) && bytes.size() > profile.size() + 2) {
        found.profile.emplace(segment.byte(profile.size()), bytes.substr(profile.size() + 2));
    } else if (marker == app14 && bytes.starts_with("Adobe"sv)) {
        found.has_adobe = true;
    }
}

/// Where the next mark stands, from `position` on. In compressed data a 0 or a restart follows what looks
/// like a mark.
std::size_t next_mark(std::string_view bytes, std::size_t position) {
    while (true) {
        position = bytes.find('\xFF', position);
        if (position == std::string_view::npos || position + 1 >= bytes.size()) return std::string_view::npos;
        const auto marker = static_cast<std::uint8_t>(bytes[position + 1]);
        const bool is_data = marker == 0 || (marker >= first_restart && marker <= last_restart);
        if (!is_data && marker != 0xFF) return position;
        position += marker == 0xFF ? 1 : 2;
    }
}

Segments read_segments(std::string_view bytes) {
    const ByteReader reader(bytes, ByteReader::Order::big_endian);
    Segments found;
    for (std::size_t at = next_mark(bytes, 2); at != std::string_view::npos; at = next_mark(bytes, at)) {
        const std::uint8_t marker = reader.byte(at + 1);
        at += 2;
        if (marker == image_end) {
            found.end = at;
            break;
        }
        if (marker == image_start || marker == 1) continue;
        const std::size_t length = reader.word(at);
        if (length < 2 || at + length > bytes.size()) break;
        read_segment(marker, reader.slice(at + 2, length - 2), found);
        found.has_scan = found.has_scan || marker == scan_start;
        at += length;
    }
    if (found.end == 0) throw ImageError("the JPEG is cut off before its end");
    if (found.components == 0 || !found.has_scan) throw ImageError("the JPEG holds no image");
    return found;
}

std::string profile_of(const Segments& found) {
    std::string profile;
    for (const auto& [number, part] : found.profile)
        profile += part;
    return components_of_profile(profile) == found.components ? profile : std::string();
}

/// Readers take three components for brightness and differences unless a mark, or this, says otherwise.
std::string parameters_of(const Segments& found) {
    const bool says_nothing = !found.has_adobe && !found.has_jfif;
    return says_nothing && found.component_names == "RGB" ? "<< /ColorTransform 0 >>" : std::string();
}

}  // namespace

Picture read_jpeg(const Content& file) {
    const Segments found = read_segments(file.bytes());
    require_reasonable_size(found.width, found.height, "JPEG");
    if (found.components != 1 && found.components != 3 && found.components != 4)
        throw ImageError("the JPEG has " + std::to_string(found.components) + " components");
    Picture picture;
    picture.orientation = found.exif.orientation;
    picture.resolution = found.jfif_resolution.across > 0 ? found.jfif_resolution : found.exif.resolution;
    Pixels& pixels = picture.pixels;
    pixels.width = found.width;
    pixels.height = found.height;
    pixels.colours.components = found.components;
    pixels.colours.icc_profile = profile_of(found);
    pixels.filter = "/DCTDecode";
    pixels.parameters = parameters_of(found);
    // Whoever writes Adobe's mark writes inks the wrong way round.
    if (found.components == 4 && found.has_adobe) pixels.decode = "[1 0 1 0 1 0 1 0]";
    pixels.content = file;
    pixels.pieces = {file.bytes().substr(0, found.end)};
    return picture;
}

}  // namespace foliant::hosts::acrobat::images
