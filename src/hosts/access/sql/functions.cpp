#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <limits>

#include "automation/text.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

using Arguments = std::span<const Datum>;

double number(const Datum& datum, const char* what = "a calculation") {
    if (const auto value = number_in(datum)) return *value;
    throw SqlError(std::string(what) + " needs a number, and gets \"" +
                   text_of(datum).value_or("binary data") + "\"");
}

std::string text(const Datum& datum) {
    auto value = text_of(datum);
    if (!value) throw SqlError("binary data has no text");
    return std::move(*value);
}

bool is_whole(const Datum& datum) {
    return std::holds_alternative<std::int64_t>(datum) || std::holds_alternative<bool>(datum);
}

bool is_money(const Datum& datum) {
    return std::holds_alternative<Money>(datum);
}

/// Rounds a half to the even neighbour, as Access does.
double rounded(double value) {
    return std::nearbyint(value);
}

Datum whole(double value) {
    constexpr double limit = 9.2e18;
    if (!(std::fabs(value) < limit)) throw SqlError("a number is too large");
    return static_cast<std::int64_t>(value);
}

Datum money(double value) {
    return Money{std::get<std::int64_t>(whole(rounded(value * 10000)))};
}

/// What a sum or a product of these two is: exact where both are.
Datum as_kind_of(double value, const Datum& left, const Datum& right) {
    const bool is_date = std::holds_alternative<Date>(left) != std::holds_alternative<Date>(right);
    if (is_date) return Date{value};
    if ((is_money(left) || is_whole(left)) && (is_money(right) || is_whole(right)))
        return is_money(left) || is_money(right) ? money(value) : whole(value);
    return value;
}

template <Datum (*apply)(const std::string&)>
Datum of_text(Arguments given) {
    return is_null(given[0]) ? Datum(Null()) : apply(text(given[0]));
}

template <Datum (*apply)(double)>
Datum of_number(Arguments given) {
    return is_null(given[0]) ? Datum(Null()) : apply(number(given[0], "a function"));
}

/// One part of a date: Year(date) ...
template <auto part>
Datum of_date(Arguments given) {
    if (is_null(given[0])) return Null();
    return static_cast<std::int64_t>(part(calendar_date({number(given[0], "a date")})));
}

/// Where the character at that place begins, counted from 0; the end of a shorter text.
std::size_t place_of(std::string_view whole_text, double characters) {
    std::size_t at = 0;
    for (double count = 0; at < whole_text.size() && count < characters; ++count) {
        ++at;
        while (at < whole_text.size() && (static_cast<unsigned char>(whole_text[at]) & 0xC0U) == 0x80U)
            ++at;
    }
    return at;
}

std::int64_t length_of(std::string_view whole_text) {
    return std::ranges::count_if(
        whole_text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; });
}

Datum left(Arguments given) {
    if (is_null(given[0])) return Null();
    const std::string whole_text = text(given[0]);
    return whole_text.substr(0, place_of(whole_text, number(given[1])));
}

Datum right(Arguments given) {
    if (is_null(given[0])) return Null();
    const std::string whole_text = text(given[0]);
    return whole_text.substr(
        place_of(whole_text, static_cast<double>(length_of(whole_text)) - number(given[1])));
}

Datum middle(Arguments given) {
    if (is_null(given[0])) return Null();
    const std::string rest = [&] {
        const std::string whole_text = text(given[0]);
        return whole_text.substr(place_of(whole_text, number(given[1]) - 1));
    }();
    return given.size() < 3 ? rest : rest.substr(0, place_of(rest, number(given[2])));
}

Datum trimmed(std::string_view content, bool at_left, bool at_right) {
    while (at_left && content.starts_with(' '))
        content.remove_prefix(1);
    while (at_right && content.ends_with(' '))
        content.remove_suffix(1);
    return std::string(content);
}

std::string upper(const std::string& content) {
    // What becomes a character when it is made small is that character's capital.
    std::string result;
    for (std::size_t at = 0; at < content.size();) {
        const std::size_t next = at + place_of(std::string_view(content).substr(at), 1);
        std::string character = content.substr(at, next - at);
        if (character.size() == 1 && character[0] >= 'a' && character[0] <= 'z')
            character[0] = static_cast<char>(character[0] - 'a' + 'A');
        else if (character.size() == 2 && automation::to_lower(character) == character)
            for (const auto& [lead, step] : {std::pair('\xC3', -0x20), {'\xD0', -0x20}}) {
                std::string capital = character;
                capital[1] = static_cast<char>(capital[1] + step);
                if (character[0] == lead && automation::to_lower(capital) == character) character = capital;
            }
        result += character;
        at = next;
    }
    return result;
}

Datum in_text(Arguments given) {
    const std::size_t first = given.size() > 2 ? 1 : 0;
    if (is_null(given[first]) || is_null(given[first + 1])) return Null();
    const std::string whole_text = automation::to_lower(text(given[first]));
    const std::string wanted = automation::to_lower(text(given[first + 1]));
    const std::size_t begin = first == 0 ? 0 : place_of(whole_text, number(given[0]) - 1);
    const std::size_t found = whole_text.find(wanted, begin);
    if (found == std::string::npos) return std::int64_t{0};
    return length_of(std::string_view(whole_text).substr(0, found)) + 1;
}

Datum round_to(Arguments given) {
    if (is_null(given[0])) return Null();
    const double scale = given.size() < 2 ? 1 : std::pow(10.0, number(given[1]));
    const double value = rounded(number(given[0]) * scale) / scale;
    return is_money(given[0]) ? money(value) : Datum(value);
}

Datum without_sign(Arguments given) {
    if (is_null(given[0])) return Null();
    const double value = std::fabs(number(given[0]));
    return is_money(given[0]) ? money(value) : is_whole(given[0]) ? whole(value) : Datum(value);
}

Datum now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    return make_date(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                     parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec);
}

Datum date_value(const std::string& written) {
    if (const auto date = read_date(written)) return *date;
    throw SqlError("\"" + written + "\" is no date");
}

struct Named {
    std::string_view name;
    Function function;
};

/// Iif is worked out by whoever evaluates it, as it takes only one of its parts.
constexpr Datum (*not_called)(Arguments) = nullptr;

constexpr std::array functions{
    Named{"iif", {3, 3, not_called}},
    Named{"nz",
          {1, 2,
           [](Arguments given) {
               return !is_null(given[0]) ? given[0] : given.size() > 1 ? given[1] : Datum(std::string());
           }}},
    Named{"isnull", {1, 1, [](Arguments given) { return Datum(is_null(given[0])); }}},
    Named{"year", {1, 1, of_date<[](const CalendarDate& date) { return date.year; }>}},
    Named{"month", {1, 1, of_date<[](const CalendarDate& date) { return date.month; }>}},
    Named{"day", {1, 1, of_date<[](const CalendarDate& date) { return date.day; }>}},
    Named{"hour", {1, 1, of_date<[](const CalendarDate& date) { return date.hour; }>}},
    Named{"minute", {1, 1, of_date<[](const CalendarDate& date) { return date.minute; }>}},
    Named{"second", {1, 1, of_date<[](const CalendarDate& date) { return date.second; }>}},
    Named{"weekday", {1, 1, of_date<[](const CalendarDate& date) { return date.weekday + 1; }>}},
    Named{"date", {0, 0, [](Arguments) { return Datum(Date{std::floor(std::get<Date>(now()).days)}); }}},
    Named{"now", {0, 0, [](Arguments) { return now(); }}},
    Named{"dateserial",
          {3, 3,
           [](Arguments given) {
               return Datum(make_date(std::llround(number(given[0])), std::llround(number(given[1])),
                                      std::llround(number(given[2]))));
           }}},
    Named{"datevalue", {1, 1, of_text<date_value>}},
    Named{"cdate",
          {1, 1,
           [](Arguments given) {
               return std::holds_alternative<std::string>(given[0]) ? date_value(text(given[0]))
                                                                    : Datum(Date{number(given[0], "CDate")});
           }}},
    Named{"left", {2, 2, left}},
    Named{"right", {2, 2, right}},
    Named{"mid", {2, 3, middle}},
    Named{"len", {1, 1, of_text<[](const std::string& content) { return Datum(length_of(content)); }>}},
    Named{"ucase", {1, 1, of_text<[](const std::string& content) { return Datum(upper(content)); }>}},
    Named{"lcase",
          {1, 1, of_text<[](const std::string& content) { return Datum(automation::to_lower(content)); }>}},
    Named{"trim", {1, 1, of_text<[](const std::string& content) { return trimmed(content, true, true); }>}},
    Named{"ltrim", {1, 1, of_text<[](const std::string& content) { return trimmed(content, true, false); }>}},
    Named{"rtrim", {1, 1, of_text<[](const std::string& content) { return trimmed(content, false, true); }>}},
    Named{"instr", {2, 3, in_text}},
    Named{"cstr", {1, 1, of_text<[](const std::string& content) { return Datum(content); }>}},
    Named{"ccur", {1, 1, of_number<money>}},
    Named{"cdbl", {1, 1, of_number<[](double value) { return Datum(value); }>}},
    Named{"clng", {1, 1, of_number<[](double value) { return whole(rounded(value)); }>}},
    Named{"cint", {1, 1, of_number<[](double value) { return whole(rounded(value)); }>}},
    Named{"int", {1, 1, of_number<[](double value) { return whole(std::floor(value)); }>}},
    Named{"fix", {1, 1, of_number<[](double value) { return whole(std::trunc(value)); }>}},
    Named{"abs", {1, 1, without_sign}},
    Named{"round", {1, 2, round_to}},
};

constexpr std::array<std::string_view, 7> aggregates{"sum", "count", "avg", "min", "max", "first", "last"};

Datum sum_of(std::span<const Datum* const> values) {
    Datum total = *values.front();
    for (const Datum* value : values.subspan(1))
        total = calculate("+", total, *value);
    return total;
}

}  // namespace

const Function* find_function(std::string_view name) {
    const auto found = std::ranges::find(functions, name, &Named::name);
    return found == functions.end() ? nullptr : &found->function;
}

bool is_aggregate(std::string_view name) {
    return std::ranges::find(aggregates, name) != aggregates.end();
}

Datum aggregate(std::string_view name, std::span<const Datum> values) {
    if (name == "first" || name == "last") {
        if (values.empty()) return Null();
        return name == "first" ? values.front() : values.back();
    }
    std::vector<const Datum*> present;
    for (const Datum& value : values)
        if (!is_null(value)) present.push_back(&value);
    if (name == "count") return static_cast<std::int64_t>(present.size());
    if (present.empty()) return Null();
    const auto smaller = [](const Datum* first, const Datum* second) {
        return sort_order(*first, *second) < 0;
    };
    if (name == "min") return **std::ranges::min_element(present, smaller);
    if (name == "max") return **std::ranges::max_element(present, smaller);
    Datum total = sum_of(present);
    if (name == "sum") return total;
    const double mean = number(total, "Avg") / static_cast<double>(present.size());
    return is_money(total) ? money(mean) : Datum(mean);
}

Datum calculate(std::string_view operation, const Datum& left, const Datum& right) {
    if (is_null(left) || is_null(right)) return Null();
    if (operation == "+" && std::holds_alternative<std::string>(left) &&
        std::holds_alternative<std::string>(right))
        return std::get<std::string>(left) + std::get<std::string>(right);
    if (is_money(left) && is_money(right) && (operation == "+" || operation == "-")) {
        const std::int64_t first = std::get<Money>(left).ten_thousandths;
        const std::int64_t second = std::get<Money>(right).ten_thousandths;
        std::int64_t result = 0;
        if (operation == "+" ? __builtin_add_overflow(first, second, &result)
                             : __builtin_sub_overflow(first, second, &result))
            throw SqlError("an amount of money is too large");
        return Money{result};
    }
    const double first = number(left);
    const double second = number(right);
    if (operation == "+") return as_kind_of(first + second, left, right);
    if (operation == "-") return as_kind_of(first - second, left, right);
    if (operation == "*") return as_kind_of(first * second, left, right);
    if (operation == "^") return std::pow(first, second);
    if (operation != "/" && rounded(second) == 0) throw SqlError("a division by zero");
    if (operation == "mod") return whole(std::fmod(rounded(first), rounded(second)));
    if (operation == "\\") return whole(std::trunc(rounded(first) / rounded(second)));
    if (second == 0) throw SqlError("a division by zero");
    return first / second;
}

}  // namespace foliant::hosts::access
