#include "hosts/access/sql/datum.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

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
