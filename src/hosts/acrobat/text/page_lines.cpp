#include "hosts/acrobat/text/page_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <glib.h>
#include <map>

namespace foliant::hosts::acrobat::text {
namespace {

constexpr char32_t soft_hyphen = 0x00AD;

void add_letter(Token& token, char32_t letter, std::uint32_t origin) {
    std::array<gunichar, G_UNICHAR_MAX_DECOMPOSITION_LENGTH> parts{letter};
    std::size_t count = 1;
    const bool is_ligature = letter >= 0xFB00 && letter <= 0xFB06;
    if (is_ligature) count = g_unichar_fully_decompose(letter, TRUE, parts.data(), parts.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (parts.at(i) == soft_hyphen) continue;
        token.text.push_back(parts.at(i));
        token.origin.push_back(origin);
    }
}

/// Where a line begins and ends along its direction of writing.
struct Extent {
    float start = 0;
    float end = 0;
};

/// Lines that begin in one place, to within a point or two, stand in one column.
int column_of(const Extent& extent) {
    return static_cast<int>(std::lround(extent.start / 2));
}

void note_full_lines(std::vector<Line>& lines, const std::vector<Extent>& extents) {
    constexpr float ragged = 0.1F;  // of the column's width, that words which did not fit leave free
    std::map<int, float> ends;
    for (const Extent& extent : extents) {
        const auto column = ends.try_emplace(column_of(extent), extent.end).first;
        column->second = std::max(column->second, extent.end);
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const float end = ends[column_of(extents[i])];
        lines[i].is_full = extents[i].end >= end - ragged * (end - extents[i].start);
    }
}

}  // namespace

std::vector<Line> lines_of(const PageText& page) {
    std::vector<Line> lines;
    std::vector<Extent> extents;
    bool new_line = true;
    bool new_token = true;
    for (std::size_t number = 0; number < page.runs.size(); ++number) {
        const Run& run = page.runs[number];
        const std::size_t edge = run.first + number;
        if (new_line) {
            lines.emplace_back();
            extents.push_back({page.edges[edge], page.edges[edge]});
        }
        if (new_line || new_token) lines.back().tokens.emplace_back();
        for (std::uint32_t i = run.first; i < run.first + run.length; ++i)
            add_letter(lines.back().tokens.back(), page.letters[i], i);
        extents.back().end = page.edges[edge + run.length];
        new_line = ends_line(run.gap);
        new_token = run.gap == Gap::blank;
    }
    note_full_lines(lines, extents);
    return lines;
}

}  // namespace foliant::hosts::acrobat::text
