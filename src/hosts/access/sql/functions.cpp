#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>

#include "automation/text.h"
#include "hosts/access/sql/calculate.h"
#include "hosts/access/sql/dates.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

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

/// The interval that DatePart and its like are told: "yyyy", "q", "m", "ww", "d", "h", "n", "s" ...
std::string interval(const Datum& datum) {
    return automation::to_lower(text(datum));
}

[[noreturn]] void fail_on_interval(const Datum& datum) {
    throw SqlError("\"" + text(datum) + "\" is no interval of dates (yyyy, q, m, ww, d, h, n, s are some)");
}

double first_of_year(double date) {
    return make_date(calendar_date({date}).year, 1, 1).days;
}

Datum date_part(Arguments given) {
    if (is_null(given[1])) return Null();
    const double date = number(given[1], "DatePart");
    const double first_day = given.size() > 2 ? std::max(1.0, number(given[2])) : 1;  // 1 for Sunday
    if (given.size() > 3 && number(given[3]) > 1)
        throw SqlError("weeks that do not begin with the first of January are not counted here");
    const CalendarDate parts = calendar_date({date});
    const auto place_in_week = [&](int weekday) { return (weekday + 8 - static_cast<int>(first_day)) % 7; };
    const auto day_of_year = static_cast<std::int64_t>(std::floor(date) - first_of_year(date));
    const std::string part = interval(given[0]);
    if (part == "yyyy") return parts.year;
    if (part == "q") return std::int64_t{(parts.month - 1) / 3 + 1};
    if (part == "m") return std::int64_t{parts.month};
    if (part == "y") return day_of_year + 1;
    if (part == "d") return std::int64_t{parts.day};
    if (part == "w") return std::int64_t{place_in_week(parts.weekday) + 1};
    if (part == "ww")
        return (day_of_year + place_in_week(calendar_date({first_of_year(date)}).weekday)) / 7 + 1;
    if (part == "h") return std::int64_t{parts.hour};
    if (part == "n") return std::int64_t{parts.minute};
    if (part == "s") return std::int64_t{parts.second};
    fail_on_interval(given[0]);
}

/// The same day of a later month, or that month's last.
Date months_later(double date, double months) {
    const CalendarDate parts = calendar_date({date});
    const auto month = parts.month + static_cast<std::int64_t>(months);
    const auto last = calendar_date(make_date(parts.year, month + 1, 0)).day;
    return make_date(parts.year, month, std::min(parts.day, last),
                     parts.hour * 3600 + parts.minute * 60 + parts.second);
}

Datum date_add(Arguments given) {
    if (is_null(given[1]) || is_null(given[2])) return Null();
    const double count = std::trunc(number(given[1], "DateAdd"));
    const double date = number(given[2], "DateAdd");
    if (std::fabs(count) > 1e7) throw SqlError("a number is too large");
    const std::string part = interval(given[0]);
    if (part == "yyyy") return months_later(date, count * 12);
    if (part == "q") return months_later(date, count * 3);
    if (part == "m") return months_later(date, count);
    if (part == "d" || part == "y" || part == "w") return Date{date + count};
    if (part == "ww") return Date{date + count * 7};
    if (part == "h") return Date{date + count / 24};
    if (part == "n") return Date{date + count / 24 / 60};
    if (part == "s") return Date{date + count / 24 / 3600};
    fail_on_interval(given[0]);
}

/// How many beginnings of years, months, hours ... lie between two dates.
Datum date_difference(Arguments given) {
    if (is_null(given[1]) || is_null(given[2])) return Null();
    const double from = number(given[1], "DateDiff");
    const double to = number(given[2], "DateDiff");
    const std::string part = interval(given[0]);
    const auto months = [](double date) {
        const CalendarDate parts = calendar_date({date});
        return parts.year * 12 + parts.month - 1;
    };
    // A little over, as 10:00 may be kept as a hair less.
    const auto units = [&](double a_day) {
        constexpr double hair = 1e-6;
        return whole(std::floor(to * a_day + hair) - std::floor(from * a_day + hair));
    };
    if (part == "yyyy") return months(to) / 12 - months(from) / 12;
    if (part == "q") return months(to) / 3 - months(from) / 3;
    if (part == "m") return months(to) - months(from);
    if (part == "d" || part == "y") return units(1);
    if (part == "w") return whole(std::trunc((std::floor(to) - std::floor(from)) / 7));
    // Day 1, the last of 1899, was a Sunday.
    if (part == "ww") return whole(std::floor((to - 1) / 7) - std::floor((from - 1) / 7));
    if (part == "h") return units(24);
    if (part == "n") return units(24 * 60);
    if (part == "s") return units(24 * 3600);
    fail_on_interval(given[0]);
}

/// The value behind the first condition that holds.
Datum switched(Arguments given) {
    for (std::size_t i = 0; i + 1 < given.size(); i += 2)
        if (truth_of(given[i]).value_or(false)) return given[i + 1];
    return Null();
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
    Named{"datepart", {2, 4, date_part}},
    Named{"dateadd", {3, 3, date_add}},
    Named{"datediff", {3, 3, date_difference}},
    Named{"switch", {2, 40, switched}},
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

}  // namespace

const Function* find_function(std::string_view name) {
    const auto found = std::ranges::find(functions, name, &Named::name);
    return found == functions.end() ? nullptr : &found->function;
}

}  // namespace foliant::hosts::access
