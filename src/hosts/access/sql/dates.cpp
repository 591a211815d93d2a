#include "hosts/access/sql/dates.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "automation/text.h"

namespace foliant::hosts::access {
namespace {

/// Days of the civil calendar before 1 March of the year 0 count as the end of the year before.
std::int64_t days_from_civil(std::int64_t year, std::int64_t month, std::int64_t day) {
    year += (month - 1) / 12;
    month = (month - 1) % 12;
    if (month < 0) {
        month += 12;
        --year;
    }
    const std::int64_t shifted_year = month < 2 ? year - 1 : year;
    const std::int64_t shifted_month = (month + 10) % 12;
    const std::int64_t era = (shifted_year >= 0 ? shifted_year : shifted_year - 399) / 400;
    const std::int64_t year_of_era = shifted_year - era * 400;
    const std::int64_t day_of_year = (153 * shifted_month + 2) / 5 + day - 1;
    return era * 146097 + year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
}

const std::int64_t day_zero = days_from_civil(1899, 12, 30);

constexpr double seconds_a_day = 86400;

/// The words and numbers of a date.
std::vector<std::string> pieces_of(std::string_view text) {
    std::vector<std::string> pieces;
    char last = ' ';
    const auto kind = [](char c) {
        return c >= '0' && c <= '9' ? '0' : std::strchr("/-., \t", c) != nullptr ? ' ' : c == ':' ? ':' : 'a';
    };
    for (const char character : automation::to_lower(text)) {
        const char now = kind(character);
        if (now != ' ' && (now != last || pieces.empty() || now == ':')) pieces.emplace_back();
        if (now != ' ') pieces.back() += character;
        last = now;
    }
    return pieces;
}

std::optional<int> whole_number(const std::string& piece) {
    int number = 0;
    const auto [end, problem] = std::from_chars(piece.data(), piece.data() + piece.size(), number);
    if (problem != std::errc{} || end != piece.data() + piece.size()) return std::nullopt;
    return number;
}

std::optional<int> month_named(const std::string& word) {
    constexpr std::array names{"january", "february", "march",     "april",   "may",      "june",
                               "july",    "august",   "september", "october", "november", "december"};
    for (std::size_t i = 0; i < names.size(); ++i)
        if (word.size() >= 3 && std::string_view(names[i]).starts_with(word)) return static_cast<int>(i) + 1;
    return std::nullopt;
}

/// Takes "10:30", "10:30:15", "10 pm" from the end of the pieces; nothing when it is no time of a day.
std::optional<double> take_time(std::vector<std::string>& pieces) {
    bool afternoon = false;
    bool has_half = false;
    if (!pieces.empty() && (pieces.back() == "am" || pieces.back() == "pm")) {
        afternoon = pieces.back() == "pm";
        has_half = true;
        pieces.pop_back();
    }
    std::size_t first = pieces.size();
    while (first >= 2 && pieces[first - 2] == ":")
        first -= 2;
    if (first == pieces.size() && !has_half) return 0;
    if (first == 0) return std::nullopt;
    --first;
    std::array<int, 3> parts{};
    for (std::size_t i = first, part = 0; i < pieces.size(); i += 2, ++part) {
        const auto number = whole_number(pieces[i]);
        if (!number || part >= parts.size()) return std::nullopt;
        parts[part] = *number;
    }
    if (parts[0] > (has_half ? 12 : 23) || parts[1] > 59 || parts[2] > 59) return std::nullopt;
    if (has_half) parts[0] = parts[0] % 12 + (afternoon ? 12 : 0);
    pieces.resize(first);
    return parts[0] * 3600 + parts[1] * 60 + parts[2];
}

int full_year(int year, const std::string& written) {
    if (written.size() > 2) return year;
    return year + (year < 30 ? 2000 : 1900);
}

/// The day that three pieces name; nothing when there is no such day.
std::optional<Date> read_day(const std::vector<std::string>& pieces, double seconds) {
    if (pieces.size() != 3) return std::nullopt;
    std::size_t month_at = 0;
    std::size_t day_at = 1;
    std::size_t year_at = 2;
    if (pieces[0].size() == 4 && whole_number(pieces[0])) {
        year_at = 0;
        month_at = 1;
        day_at = 2;
    }
    if (year_at == 2 && month_named(pieces[1])) std::swap(month_at, day_at);
    std::optional<int> month = month_named(pieces[month_at]);
    if (!month) month = whole_number(pieces[month_at]);
    std::optional<int> day = whole_number(pieces[day_at]);
    const auto year = whole_number(pieces[year_at]);
    if (!month || !day || !year) return std::nullopt;
    if (*month > 12 && *day <= 12 && year_at == 2) std::swap(month, day);
    const Date date = make_date(full_year(*year, pieces[year_at]), *month, *day, seconds);
    const CalendarDate parts = calendar_date(date);
    if (parts.month != *month || parts.day != *day) return std::nullopt;
    return date;
}

}  // namespace

Date make_date(std::int64_t year, std::int64_t month, std::int64_t day, double seconds) {
    const auto days = static_cast<double>(days_from_civil(year, month, day) - day_zero);
    const double fraction = seconds / seconds_a_day;
    return {days < 0 ? days - fraction : days + fraction};
}

CalendarDate calendar_date(Date date) {
    double whole = std::trunc(date.days);
    auto seconds = static_cast<std::int64_t>(std::llround(std::fabs(date.days - whole) * seconds_a_day));
    if (seconds >= static_cast<std::int64_t>(seconds_a_day)) {
        seconds = 0;
        whole += whole < 0 ? -1 : 1;
    }
    const auto days = static_cast<std::int64_t>(whole) + day_zero;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const std::int64_t day_of_era = days - era * 146097;
    const std::int64_t year_of_era =
        (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
    const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
    const std::int64_t shifted_month = (5 * day_of_year + 2) / 153;
    CalendarDate parts;
    parts.day = static_cast<int>(day_of_year - (153 * shifted_month + 2) / 5 + 1);
    parts.month = static_cast<int>(shifted_month < 10 ? shifted_month + 3 : shifted_month - 9);
    parts.year = year_of_era + era * 400 + (parts.month <= 2 ? 1 : 0);
    parts.weekday = static_cast<int>(((days + 3) % 7 + 7) % 7);
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    parts.has_day = whole != 0;
    parts.has_time = seconds != 0;
    return parts;
}

std::optional<Date> read_date(std::string_view text) {
    std::vector<std::string> pieces = pieces_of(text);
    const std::size_t before = pieces.size();
    const auto seconds = take_time(pieces);
    if (!seconds || before == 0) return std::nullopt;
    if (pieces.empty()) return Date{*seconds / seconds_a_day};
    return read_day(pieces, *seconds);
}

}  // namespace foliant::hosts::access
