#include "hosts/access/sql/datum.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "automation/text.h"
#include "hosts/access/sql/dates.h"

namespace foliant::hosts::access {
namespace {

std::string number_text(double number, int digits = 15) {
    std::array<char, 64> buffer{};
    const auto [end, problem] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                              std::chars_format::general, digits);
    return {buffer.data(), end};
}

std::string two_digits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string date_text(Date date) {
    const CalendarDate parts = calendar_date(date);
    std::string text;
    if (parts.has_day || !parts.has_time)
        text = std::to_string(parts.year) + '-' + two_digits(parts.month) + '-' + two_digits(parts.day);
    if (parts.has_time)
        text += (text.empty() ? "" : " ") + two_digits(parts.hour) + ':' + two_digits(parts.minute) + ':' +
                two_digits(parts.second);
    return text;
}

int sign(int number) {
    return (number > 0) - (number < 0);
}

/// By the rules of the user's language where it has any; texts that differ only in case are equal.
int compare_texts(const std::string& left, const std::string& right) {
    const std::string low_left = automation::to_lower(left);
    const std::string low_right = automation::to_lower(right);
    if (low_left == low_right) return 0;
    if (const int order = std::strcoll(low_left.c_str(), low_right.c_str()); order != 0) return sign(order);
    return low_left < low_right ? -1 : 1;
}

int compare_numbers(double left, double right) {
    return (left > right) - (left < right);
}

std::string kind_word(const Datum& datum) {
    if (std::holds_alternative<std::string>(datum))
        return "the text \"" + std::get<std::string>(datum) + "\"";
    if (std::holds_alternative<Date>(datum)) return "the date " + date_text(std::get<Date>(datum));
    if (std::holds_alternative<Opaque>(datum)) return "binary data";
    return "the number " + text_of(datum).value_or("");
}

std::u32string code_points(std::string_view text) {
    std::u32string points;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t point = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
            point = (point << 6U) | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
        points += point;
        i += length;
    }
    return points;
}

bool is_digit(char32_t character) {
    return character >= U'0' && character <= U'9';
}

/// Whether a character is in the list between brackets.
bool is_in(std::u32string_view list, char32_t character) {
    const bool negated = list.size() > 1 && list.front() == U'!';
    if (negated) list.remove_prefix(1);
    for (std::size_t i = 0; i < list.size(); ++i) {
        const bool is_range = i + 2 < list.size() && list[i + 1] == U'-';
        const char32_t last = is_range ? list[i + 2] : list[i];
        if (character >= list[i] && character <= last) return !negated;
        if (is_range) i += 2;
    }
    return negated;
}

/// The place behind the first element of a pattern, and whether that takes the character.
struct Step {
    std::size_t next;
    bool takes;
};

Step step(std::u32string_view pattern, std::size_t at, char32_t character) {
    if (pattern[at] == U'?') return {at + 1, true};
    if (pattern[at] == U'#') return {at + 1, is_digit(character)};
    if (pattern[at] != U'[') return {at + 1, pattern[at] == character};
    const std::size_t end = pattern.find(U']', at + 1);
    return {end + 1, is_in(pattern.substr(at + 1, end - at - 1), character)};
}

void require_closed_brackets(std::u32string_view pattern, std::string_view written) {
    for (std::size_t at = 0; (at = pattern.find(U'[', at)) != std::u32string_view::npos;) {
        at = pattern.find(U']', at);
        if (at == std::u32string_view::npos)
            throw SqlError("the pattern \"" + std::string(written) + "\" has a [ without a ]");
    }
}

}  // namespace

std::optional<double> number_in(const Datum& datum) {
    if (const auto* truth = std::get_if<bool>(&datum)) return *truth ? -1.0 : 0.0;
    if (const auto* whole = std::get_if<std::int64_t>(&datum)) return static_cast<double>(*whole);
    if (const auto* number = std::get_if<double>(&datum)) return *number;
    if (const auto* money = std::get_if<Money>(&datum))
        return static_cast<double>(money->ten_thousandths) / 10000;
    if (const auto* date = std::get_if<Date>(&datum)) return date->days;
    if (const auto* decimal = std::get_if<Decimal>(&datum)) {
        double number = 0;
        std::from_chars(decimal->digits.data(), decimal->digits.data() + decimal->digits.size(), number);
        return number;
    }
    return std::nullopt;
}

std::optional<std::string> text_of(const Datum& datum) {
    if (is_null(datum)) return "";
    if (const auto* text = std::get_if<std::string>(&datum)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&datum)) return std::to_string(*whole);
    if (const auto* decimal = std::get_if<Decimal>(&datum)) return decimal->digits;
    if (const auto* date = std::get_if<Date>(&datum)) return date_text(*date);
    if (const auto number = number_in(datum)) return number_text(*number);
    return std::nullopt;
}

std::optional<bool> truth_of(const Datum& datum) {
    if (is_null(datum)) return std::nullopt;
    if (const auto number = number_in(datum)) return *number != 0;
    throw SqlError(kind_word(datum) + " is no condition");
}

std::optional<int> compare(const Datum& left, const Datum& right) {
    if (is_null(left) || is_null(right)) return std::nullopt;
    const auto* left_text = std::get_if<std::string>(&left);
    const auto* right_text = std::get_if<std::string>(&right);
    if (left_text != nullptr && right_text != nullptr) return compare_texts(*left_text, *right_text);
    const auto left_number = number_in(left);
    const auto right_number = number_in(right);
    if (!left_number || !right_number)
        throw SqlError(kind_word(left) + " cannot be compared with " + kind_word(right) +
                       ": texts stand in '' or \"\", dates between # and #, numbers alone");
    return compare_numbers(*left_number, *right_number);
}

int sort_order(const Datum& left, const Datum& right) {
    const auto rank = [](const Datum& datum) {
        return is_null(datum) ? 0 : number_in(datum) ? 1 : std::holds_alternative<std::string>(datum) ? 2 : 3;
    };
    if (rank(left) != rank(right)) return sign(rank(left) - rank(right));
    if (rank(left) == 1) return compare_numbers(*number_in(left), *number_in(right));
    if (rank(left) == 2) return compare_texts(std::get<std::string>(left), std::get<std::string>(right));
    return 0;
}

bool LessRow::operator()(const Row& left, const Row& right) const {
    return std::ranges::lexicographical_compare(
        left, right, [](const Datum& first, const Datum& second) { return sort_order(first, second) < 0; });
}

bool is_like(std::string_view text, std::string_view pattern) {
    const std::u32string points = code_points(automation::to_lower(text));
    const std::u32string wanted = code_points(automation::to_lower(pattern));
    require_closed_brackets(wanted, pattern);
    std::size_t at = 0;
    std::size_t in_pattern = 0;
    std::optional<std::pair<std::size_t, std::size_t>>
        last_star;  // where to go on when what follows it fails
    while (true) {
        if (in_pattern < wanted.size() && wanted[in_pattern] == U'*') {
            last_star = {at, ++in_pattern};
            continue;
        }
        if (at == points.size() && in_pattern == wanted.size()) return true;
        if (at < points.size() && in_pattern < wanted.size()) {
            const Step taken = step(wanted, in_pattern, points[at]);
            if (taken.takes) {
                in_pattern = taken.next;
                ++at;
                continue;
            }
        }
        if (!last_star || last_star->first == points.size()) return false;
        at = ++last_star->first;
        in_pattern = last_star->second;
    }
}

}  // namespace foliant::hosts::access
