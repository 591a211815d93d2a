#include "hosts/acrobat/images/exif.h"

#include "hosts/acrobat/images/byte_reader.h"

namespace foliant::hosts::acrobat::images {
namespace {

enum Tag : std::uint16_t {
    orientation_tag = 0x112,
    across_tag = 0x11A,
    down_tag = 0x11B,
    unit_tag = 0x128,
};

constexpr double centimetres_an_inch = 2.54;

double rational(const ByteReader& block, std::size_t at) {
    const std::uint32_t divisor = block.dword(at + 4);
    return divisor == 0 ? 0 : static_cast<double>(block.dword(at)) / divisor;
}

}  // namespace

Exif read_exif(std::string_view block) {
    constexpr std::size_t entry_size = 12;
    constexpr std::size_t value_in_entry = 8;
    constexpr std::uint16_t centimetre = 3;
    const bool is_little = block.starts_with("II");
    if (!is_little && !block.starts_with("MM")) return {};
    const ByteReader reader(block,
                            is_little ? ByteReader::Order::little_endian : ByteReader::Order::big_endian);
    Exif exif;
    double scale = 1;
    const std::size_t directory = reader.dword(4);
    for (std::size_t i = 0; i < reader.word(directory); ++i) {
        const std::size_t entry = directory + 2 + i * entry_size;
        if (entry + entry_size > reader.size()) break;
        const std::size_t value = entry + value_in_entry;
        switch (reader.word(entry)) {
            case orientation_tag:
                if (reader.word(value) >= 1 && reader.word(value) <= 8) exif.orientation = reader.word(value);
                break;
            case across_tag:
                exif.resolution.across = rational(reader, reader.dword(value));
                break;
            case down_tag:
                exif.resolution.down = rational(reader, reader.dword(value));
                break;
            case unit_tag:
                if (reader.word(value) == centimetre) scale = centimetres_an_inch;
                if (reader.word(value) == 1) scale = 0;  // no unit: proportions
                break;
            default:
                break;
        }
    }
    exif.resolution.across *= scale;
    exif.resolution.down *= scale;
    return exif;
}

}  // namespace foliant::hosts::acrobat::images
