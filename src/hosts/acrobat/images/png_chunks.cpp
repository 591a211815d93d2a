#include "hosts/acrobat/images/png_chunks.h"

#include <algorithm>
#include <array>
#include <zlib.h>

#include "hosts/acrobat/images/byte_reader.h"
#include "hosts/acrobat/images/image_error.h"

namespace foliant::hosts::acrobat::images {
namespace {

constexpr std::size_t signature_size = 8;
constexpr std::size_t around_data = 12;  // length, name and checksum of a chunk

void read_header(const ByteReader& chunk, PngChunks& found) {
    if (chunk.size() < 13) throw ImageError("the PNG has a damaged header");
    found.width = chunk.dword(0);
    found.height = chunk.dword(4);
    found.bits = chunk.byte(8);
    found.kind = static_cast<PngChunks::Kind>(chunk.byte(9));
    found.is_interlaced = chunk.byte(12) == 1;
    const auto is_one_of = [&](std::initializer_list<int> bits) {
        return std::find(bits.begin(), bits.end(), found.bits) != bits.end();
    };
    const bool is_known = found.kind == PngChunks::grey      ? is_one_of({1, 2, 4, 8, 16})
                          : found.kind == PngChunks::palette ? is_one_of({1, 2, 4, 8})
                          : found.components() > 0           ? is_one_of({8, 16})
                                                             : false;
    if (!is_known || chunk.byte(10) != 0 || chunk.byte(11) != 0 || chunk.byte(12) > 1)
        throw ImageError("the PNG is of a kind that does not exist");
    require_reasonable_size(found.width, found.height, "PNG");
}

/// A profile is no reason to refuse an image: one that is damaged counts as not there.
std::string read_profile(std::string_view chunk) {
    constexpr std::size_t longest = std::size_t{4} << 20U;
    const std::size_t name_end = chunk.find('\0');
    if (name_end == std::string_view::npos || name_end + 2 > chunk.size()) return {};
    const std::string_view compressed = chunk.substr(name_end + 2);
    std::string profile;
    for (uLongf size = 1U << 16U; size <= longest; size *= 4) {
        profile.resize(size);
        uLongf got = size;
        const int result = ::uncompress(reinterpret_cast<Bytef*>(profile.data()), &got,
                                        reinterpret_cast<const Bytef*>(compressed.data()), compressed.size());
        profile.resize(got);
        if (result == Z_OK) return profile;
        if (result != Z_BUF_ERROR) break;
    }
    return {};
}

void read_resolution(const ByteReader& chunk, PngChunks& found) {
    constexpr std::uint8_t metre = 1;
    if (chunk.byte(8) == metre) found.resolution = dots_a_metre(chunk.dword(0), chunk.dword(4));
}

void read_chunk(std::string_view name, std::string_view data, PngChunks& found) {
    const ByteReader chunk(data, ByteReader::Order::big_endian);
    if (name == "PLTE") {
        found.colours = data.substr(0, std::min<std::size_t>(data.size() - data.size() % 3, 768));
    } else if (name == "tRNS") {
        found.transparency = data;
        found.has_transparency = true;
    } else if (name == "pHYs") {
        read_resolution(chunk, found);
    } else if (name == "eXIf") {
        found.exif = read_exif(data);
    } else if (name == "iCCP") {
        found.icc_profile = read_profile(data);
    } else if (name == "IDAT") {
        found.data.push_back(data);
    } else if ((name.front() & 0x20) == 0 && name != "IEND") {
        throw ImageError("the PNG cannot be understood without its part \"" + std::string(name) + "\"");
    }
}

bool is_unharmed(std::string_view name_and_data, std::uint32_t checksum) {
    return ::crc32_z(0, reinterpret_cast<const Bytef*>(name_and_data.data()), name_and_data.size()) ==
           checksum;
}

/// Deflated data grow by no more than this: an image that claims more was not compressed to what is there.
void require_enough_data(const PngChunks& found) {
    constexpr std::uint64_t most_growth = 1032;
    std::uint64_t compressed = 0;
    for (const std::string_view piece : found.data)
        compressed += piece.size();
    const std::uint64_t wanted = std::uint64_t{found.row_bytes(found.width)} * found.height;
    if (wanted / most_growth > compressed)
        throw ImageError("the PNG claims " + std::to_string(found.width) + " x " +
                         std::to_string(found.height) + " pixels and does not hold them");
}

}  // namespace

int PngChunks::components() const {
    switch (kind) {
        case grey:
        case palette:
            return 1;
        case grey_with_opacity:
            return 2;
        case rgb:
            return 3;
        case rgb_with_opacity:
            return 4;
    }
    return 0;
}

bool PngChunks::has_opacity() const {
    return kind == grey_with_opacity || kind == rgb_with_opacity;
}

std::size_t PngChunks::pixel_bytes() const {
    return std::max<std::size_t>(1, static_cast<std::size_t>(components() * bits) / 8);
}

std::size_t PngChunks::row_bytes(std::uint32_t pixels) const {
    return (std::size_t{pixels} * static_cast<std::size_t>(components() * bits) + 7) / 8;
}

PngChunks read_png_chunks(std::string_view file) {
    const ByteReader reader(file, ByteReader::Order::big_endian);
    PngChunks found;
    std::string_view name;
    for (std::size_t at = signature_size; name != "IEND";) {
        const std::size_t length = reader.dword(at);
        if (at + around_data > file.size() || length > file.size() - at - around_data)
            throw ImageError("the PNG is cut off before its end");
        const std::string_view name_and_data = reader.slice(at + 4, 4 + length);
        name = name_and_data.substr(0, 4);
        if (!is_unharmed(name_and_data, reader.dword(at + 8 + length)))
            throw ImageError("the PNG is damaged: the checksum of a part is wrong");
        const std::string_view data = name_and_data.substr(4);
        if (at == signature_size) {
            if (name != "IHDR") throw ImageError("the PNG has no header");
            read_header(ByteReader(data, ByteReader::Order::big_endian), found);
        } else {
            read_chunk(name, data, found);
        }
        at += around_data + length;
    }
    if (found.data.empty()) throw ImageError("the PNG holds no image");
    if (found.kind == PngChunks::palette && found.colours.empty()) throw ImageError("the PNG has no palette");
    require_enough_data(found);
    return found;
}

}  // namespace foliant::hosts::acrobat::images
