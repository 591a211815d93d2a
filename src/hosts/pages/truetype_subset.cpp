#include "hosts/pages/truetype_subset.h"

#include <algorithm>
#include <cstdint>
#include <hb-subset.h>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/pages/postscript_syntax.h"

namespace foliant::hosts::pages {

namespace {

struct Destroy {
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
    void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
    void operator()(hb_subset_plan_t* plan) const { hb_subset_plan_destroy(plan); }
};
using Blob = std::unique_ptr<hb_blob_t, Destroy>;
using Face = std::unique_ptr<hb_face_t, Destroy>;
using Input = std::unique_ptr<hb_subset_input_t, Destroy>;
using Plan = std::unique_ptr<hb_subset_plan_t, Destroy>;

constexpr hb_tag_t tag(std::string_view name) {
    return HB_TAG(name[0], name[1], name[2], name[3]);
}

std::string table(hb_face_t* face, hb_tag_t name) {
    const Blob blob(hb_face_reference_table(face, name));
    unsigned size = 0;
    const char* bytes = hb_blob_get_data(blob.get(), &size);
    return {bytes, size};
}

unsigned number_at(std::string_view bytes, std::size_t place, std::size_t size) {
    unsigned number = 0;
    for (const char byte : bytes.substr(place, size))
        number = number << 8U | static_cast<unsigned char>(byte);
    return number;
}

void append(std::string& bytes, unsigned number, unsigned size) {
    for (unsigned shift = size * 8; shift > 0; shift -= 8)
        bytes += static_cast<char>(number >> (shift - 8) & 0xFFU);
}

std::string padded(std::string bytes) {
    bytes.resize((bytes.size() + 3) / 4 * 4);
    return bytes;
}

unsigned checksum(std::string_view padded_bytes) {
    unsigned sum = 0;
    for (std::size_t place = 0; place < padded_bytes.size(); place += 4)
        sum += number_at(padded_bytes, place, 4);
    return sum;
}

/// What an interpreter needs of a TrueType file, in the order of the names.
constexpr std::string_view needed_tables[]{"cvt ", "fpgm", "glyf", "head", "hhea",
                                           "hmtx", "loca", "maxp", "prep"};

struct Table {
    std::string_view name;
    std::string bytes;  ///< without what fills it up
};

std::vector<Table> needed_of(hb_face_t* face) {
    std::vector<Table> tables;
    for (const std::string_view name : needed_tables)
        if (std::string bytes = table(face, tag(name)); !bytes.empty())
            tables.push_back({name, std::move(bytes)});
    return tables;
}

std::string directory_of(const std::vector<Table>& tables) {
    constexpr unsigned head_size = 12;
    constexpr unsigned entry_size = 16;
    const auto count = static_cast<unsigned>(tables.size());
    unsigned power = 1;
    unsigned exponent = 0;
    for (; power * 2 <= count; power *= 2)
        ++exponent;
    std::string bytes;
    append(bytes, 0x10000, 4);
    append(bytes, count, 2);
    append(bytes, power * entry_size, 2);
    append(bytes, exponent, 2);
    append(bytes, (count - power) * entry_size, 2);
    unsigned place = head_size + entry_size * count;
    for (const Table& table : tables) {
        const std::string filled = padded(table.bytes);
        bytes += table.name;
        append(bytes, checksum(filled), 4);
        append(bytes, place, 4);
        append(bytes, static_cast<unsigned>(table.bytes.size()), 4);
        place += static_cast<unsigned>(filled.size());
    }
    return bytes;
}

/// A string of an array of them holds at most 65535 bytes, and the outlines of a glyph have to be in one.
std::vector<std::string> parts_of(const Table& table, std::string_view loca, bool has_long_places) {
    constexpr std::size_t most = 65534;
    const std::string bytes = padded(table.bytes);
    if (table.name != "glyf" || bytes.size() <= most) return {bytes};
    const std::size_t width = has_long_places ? 4 : 2;
    std::vector<std::string> parts;
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::size_t i = 0; i + width <= loca.size(); i += width) {
        const std::size_t written = number_at(loca, i, width);
        const std::size_t place = std::min(has_long_places ? written : written * 2, bytes.size());
        if (place - begin > most && end > begin) {
            parts.push_back(bytes.substr(begin, end - begin));
            begin = end;
        }
        end = place;
    }
    parts.push_back(bytes.substr(begin));
    return parts;
}

/// The file as an array of strings, each of which ends in a byte that does not count.
std::string file_of(hb_face_t* face) {
    const std::vector<Table> tables = needed_of(face);
    const std::string head = table(face, tag("head"));
    const std::string loca = table(face, tag("loca"));
    constexpr std::size_t place_of_form = 50;
    const bool has_long_places = number_at(head, place_of_form, 2) != 0;
    std::string text = "[<";
    append_digits(text, directory_of(tables));
    text += "00>\n";
    for (const Table& each : tables) {
        for (const std::string& part : parts_of(each, loca, has_long_places)) {
            text += '<';
            append_digits(text, part);
            text += "00>\n";
        }
    }
    return text + "]";
}

std::string bounding_box(hb_face_t* face) {
    const std::string head = table(face, tag("head"));
    const double units = hb_face_get_upem(face);
    std::string text;
    for (const std::size_t place : {36U, 38U, 40U, 42U})
        text += std::to_string(static_cast<std::int16_t>(number_at(head, place, 2)) / units) + ' ';
    return text;
}

}  // namespace

TrueTypeSubset truetype_subset(hb_face_t* face, const std::set<unsigned>& glyphs) {
    const Input input(hb_subset_input_create_or_fail());
    if (!input) throw std::bad_alloc();
    for (const unsigned glyph : glyphs)
        hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
    hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const std::string_view name :
         {"GSUB", "GPOS", "GDEF", "MATH", "BASE", "kern", "cmap", "name", "OS/2", "post"})
        hb_set_add(dropped, tag(name));
    const Plan plan(hb_subset_plan_create_or_fail(face, input.get()));
    const Face subset(plan ? hb_subset_plan_execute_or_fail(plan.get()) : nullptr);
    if (!subset) throw std::runtime_error("a font cannot be taken apart");
    const hb_map_t* numbers = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    TrueTypeSubset result{file_of(subset.get()), {}, bounding_box(face)};
    for (const unsigned glyph : glyphs)
        result.numbers[glyph] = hb_map_get(numbers, glyph);
    return result;
}

}  // namespace foliant::hosts::pages
