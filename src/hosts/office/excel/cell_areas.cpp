#include "hosts/office/excel/cell_areas.h"

#include <algorithm>
#include <utility>

#include "automation/text.h"

namespace foliant::hosts::office {

namespace {

constexpr std::int32_t most_columns = 16384;
constexpr std::int32_t most_rows = 1048576;

/// A corner of an area; what it leaves out is nothing.
struct Corner {
    std::optional<std::int32_t> column;
    std::optional<std::int32_t> row;
};

bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes the leading characters of a kind, and a "$" before them.
template <class Kind>
std::string_view take(std::string_view& text, Kind kind) {
    const std::size_t start = text.starts_with('$') ? 1 : 0;
    std::size_t end = start;
    while (end < text.size() && kind(text[end]))
        ++end;
    if (end == start) return {};
    const std::string_view taken = text.substr(start, end - start);
    text.remove_prefix(end);
    return taken;
}

/// The number that the digits or letters stand for, from 0; nothing beyond `most`.
template <class Value>
std::optional<std::int32_t> number_of(std::string_view signs, std::int32_t base, std::int32_t most,
                                      Value value) {
    std::int64_t number = 0;
    for (const char sign : signs) {
        number = number * base + value(sign);
        if (number > most) return {};
    }
    if (number < 1) return {};
    return static_cast<std::int32_t>(number - 1);
}

std::optional<Corner> parse_corner(std::string_view text) {
    const std::string_view letters = take(text, is_letter);
    const std::string_view digits = take(text, is_digit);
    if (!text.empty() || (letters.empty() && digits.empty())) return {};
    Corner corner;
    if (!letters.empty()) {
        corner.column = number_of(letters, 26, most_columns, [](char c) { return (c | 0x20) - 'a' + 1; });
        if (!corner.column) return {};
    }
    if (!digits.empty()) {
        corner.row = number_of(digits, 10, most_rows, [](char c) { return c - '0'; });
        if (!corner.row) return {};
    }
    return corner;
}

/// The two ends in order; the whole length where neither corner says.
std::pair<std::int32_t, std::int32_t> span(std::optional<std::int32_t> first,
                                           std::optional<std::int32_t> last, std::int32_t most) {
    if (!first) return {0, most - 1};
    return std::minmax(*first, *last);
}

}  // namespace

std::optional<CellArea> parse_area(std::string_view text) {
    const std::size_t colon = text.find(':');
    const auto first = parse_corner(text.substr(0, colon));
    const auto last = colon == std::string_view::npos ? first : parse_corner(text.substr(colon + 1));
    if (!first || !last) return {};
    const bool alike = first->column.has_value() == last->column.has_value() &&
                       first->row.has_value() == last->row.has_value();
    const bool cell = first->column && first->row;
    if (!alike || (!cell && colon == std::string_view::npos)) return {};
    const auto columns = span(first->column, last->column, most_columns);
    const auto rows = span(first->row, last->row, most_rows);
    return CellArea{.first_column = columns.first,
                    .first_row = rows.first,
                    .last_column = columns.second,
                    .last_row = rows.second,
                    .whole_columns = !first->row,
                    .whole_rows = !first->column};
}

std::vector<std::string_view> split_areas(std::string_view list) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i <= list.size(); ++i) {
        if (i < list.size() && list[i] == '\'') quoted = !quoted;
        if (i < list.size() && (quoted || std::string_view(",;~").find(list[i]) == std::string_view::npos))
            continue;
        parts.push_back(automation::trim_blanks(list.substr(start, i - start)));
        start = i + 1;
    }
    return parts;
}

}  // namespace foliant::hosts::office
