#include "hosts/access/report/own_formats.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ctime>
#include <vector>

namespace foliant::hosts::access {
namespace {

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Goes through a format. Letters have a meaning unless they stand between quotation marks or behind a backslash; a
/// colour in brackets shows nowhere here.
class Reader {
  public:
    explicit Reader(std::string_view format) : rest_(format) {}

    bool at_end() const { return rest_.empty(); }
    char now() const { return lower(rest_.front()); }
    void skip() { rest_.remove_prefix(1); }

    /// How often the character stands here, all of which is taken.
    std::size_t run() {
        const char letter = now();
        const auto end = std::ranges::find_if(rest_, [&](char other) { return lower(other) != letter; });
        const auto count = static_cast<std::size_t>(end - rest_.begin());
        rest_.remove_prefix(count);
        return count;
    }

    bool take_if(std::string_view words) {
        if (rest_.size() < words.size() || !std::equal(words.begin(), words.end(), rest_.begin(),
                                                       [](char a, char b) { return a == lower(b); }))
            return false;
        rest_.remove_prefix(words.size());
        return true;
    }

    /// Whether what stands here stands for itself, and then takes it.
    bool take_literal(std::string& text) {
        if (rest_.front() == '"' || rest_.front() == '[') {
            const bool is_colour = rest_.front() == '[';
            const std::size_t end = rest_.find(is_colour ? ']' : '"', 1);
            if (end == std::string_view::npos) return false;
            if (!is_colour) text += rest_.substr(1, end - 1);
            rest_.remove_prefix(end + 1);
            return true;
        }
        if (rest_.front() == '\\' && rest_.size() > 1) {
            text += rest_[1];
            rest_.remove_prefix(2);
            return true;
        }
        const bool is_beyond_ascii = static_cast<unsigned char>(rest_.front()) >= 0x80;
        if (!is_beyond_ascii && std::string_view(" $-+()/:.,'").find(rest_.front()) == std::string_view::npos)
            return false;
        text += rest_.front();
        skip();
        return true;
    }

  private:
    std::string_view rest_;
};

/// The parts between semicolons: for positive numbers, for negative ones, for 0, for Null.
std::vector<std::string_view> sections_of(std::string_view format) {
    std::vector<std::string_view> sections;
    std::size_t begin = 0;
    bool is_quoted = false;
    for (std::size_t i = 0; i <= format.size(); ++i) {
        if (i < format.size() && format[i] == '"') is_quoted = !is_quoted;
        if (i < format.size() && (is_quoted || format[i] != ';')) continue;
        sections.push_back(format.substr(begin, i - begin));
        begin = i + 1;
    }
    return sections;
}

/// One section of a number's format.
struct NumberForm {
    std::string before{};
    std::string behind{};
    bool has_digits = false;
    bool has_thousands = false;
    bool is_percent = false;
    std::size_t whole = 0;  ///< digits before the point that are always there
    std::size_t fewest_decimals = 0;
    std::size_t most_decimals = 0;
};

void read_digits(Reader& reader, NumberForm& form) {
    form.has_digits = true;
    bool in_decimals = false;
    while (!reader.at_end()) {
        const char sign = reader.now();
        if (sign == '0')
            ++(in_decimals ? form.fewest_decimals : form.whole);
        else if (sign == ',' && !in_decimals)
            form.has_thousands = true;
        else if (sign == '.' && !in_decimals)
            in_decimals = true;
        else if (sign != '#')
            return;
        if (in_decimals && sign != '.') ++form.most_decimals;
        reader.skip();
    }
}

std::optional<NumberForm> number_form(std::string_view section) {
    NumberForm form;
    Reader reader(section);
    while (!reader.at_end()) {
        const char sign = reader.now();
        if (!form.has_digits && (sign == '0' || sign == '#' || sign == '.')) {
            read_digits(reader, form);
        } else if (sign == '%') {
            form.is_percent = true;
            (form.has_digits ? form.behind : form.before) += '%';
            reader.skip();
        } else if (!reader.take_literal(form.has_digits ? form.behind : form.before)) {
            return std::nullopt;
        }
    }
    return form;
}

/// The digits of a number that is not negative.
std::string digits_by(const NumberForm& form, double number, const LocaleForms& forms) {
    std::array<char, 512> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::fixed, static_cast<int>(form.most_decimals))
                         .ptr;
    const std::string_view digits(buffer.data(), end);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    std::string whole(digits.substr(0, point));
    if (whole == "0") whole.clear();
    if (whole.size() < form.whole) whole.insert(0, form.whole - whole.size(), '0');
    for (std::size_t at = whole.size(); form.has_thousands && at > 3;) {
        at -= 3;
        whole.insert(at, forms.thousands);
    }
    std::string decimals(digits.substr(std::min(point + 1, digits.size())));
    while (decimals.size() > form.fewest_decimals && decimals.ends_with('0'))
        decimals.pop_back();
    return decimals.empty() ? whole : whole + forms.decimal_point + decimals;
}

std::string in_locale(const CalendarDate& date, const char* what) {
    std::tm moment{};
    moment.tm_mon = date.month - 1;
    moment.tm_wday = date.weekday;
    std::array<char, 64> name{};
    return {name.data(), std::strftime(name.data(), name.size(), what, &moment)};
}

std::string digits(std::int64_t number, std::size_t fewest) {
    std::string text = std::to_string(number);
    return text.size() < fewest ? std::string(fewest - text.size(), '0') + text : text;
}

/// A day, a month, a year ..., by the letter that stands for it and how often that stands there.
std::optional<std::string> part_of(const CalendarDate& date, char letter, std::size_t count,
                                   bool is_afternoon_form) {
    const int hour = is_afternoon_form ? (date.hour + 11) % 12 + 1 : date.hour;
    switch (letter) {
        case 'd':
            if (count <= 2) return digits(date.day, count);
            return count <= 4 ? std::optional(in_locale(date, count == 3 ? "%a" : "%A")) : std::nullopt;
        case 'm':
            if (count <= 2) return digits(date.month, count);
            return count <= 4 ? std::optional(in_locale(date, count == 3 ? "%b" : "%B")) : std::nullopt;
        case 'y':
            if (count == 2) return digits(date.year % 100, 2);
            return count == 4 ? std::optional(digits(date.year, 4)) : std::nullopt;
        case 'q':
            return count == 1 ? std::optional(digits((date.month - 1) / 3 + 1, 1)) : std::nullopt;
        case 'h':
            return count <= 2 ? std::optional(digits(hour, count)) : std::nullopt;
        case 'n':
            return count <= 2 ? std::optional(digits(date.minute, count)) : std::nullopt;
        case 's':
            return count <= 2 ? std::optional(digits(date.second, count)) : std::nullopt;
        default:
            return std::nullopt;
    }
}

bool has_halves_of_days(std::string_view format) {
    std::string text(format);
    std::ranges::transform(text, text.begin(), lower);
    return text.find("am/pm") != std::string::npos;
}

}  // namespace

std::optional<std::string> number_by(std::string_view format, double number, const LocaleForms& forms) {
    const std::vector<std::string_view> sections = sections_of(format);
    const auto is_there = [&](std::size_t section) {
        return sections.size() > section && !sections[section].empty();
    };
    const std::size_t chosen = number == 0 && is_there(2) ? 2 : number < 0 && is_there(1) ? 1 : 0;
    const auto form = sections[chosen].empty() ? std::nullopt : number_form(sections[chosen]);
    if (!form) return std::nullopt;
    const std::string sign = number < 0 && chosen == 0 ? "-" : "";
    constexpr std::size_t most_decimals = 30;
    if (form->most_decimals > most_decimals) return std::nullopt;
    if (!form->has_digits) return sign + form->before;
    return sign + form->before + digits_by(*form, std::fabs(number) * (form->is_percent ? 100 : 1), forms) +
           form->behind;
}

std::optional<std::string> date_by(std::string_view format, const CalendarDate& date) {
    const bool has_halves = has_halves_of_days(format);
    std::string text;
    char last = '\0';  // an "m" behind hours is minutes
    for (Reader reader(format); !reader.at_end();) {
        if (reader.take_if("am/pm")) {
            text += date.hour < 12 ? "AM" : "PM";
        } else if (!reader.take_literal(text)) {
            const char letter = reader.now() == 'm' && last == 'h' ? 'n' : reader.now();
            const auto part = part_of(date, letter, reader.run(), has_halves);
            if (!part) return std::nullopt;
            text += *part;
            last = letter;
        }
    }
    return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<std::string> truth_by(std::string_view format, bool truth) {
    const std::vector<std::string_view> sections = sections_of(format);
    if (sections.size() < 3) return std::nullopt;
    const auto form = number_form(sections[truth ? 1 : 2]);
    return form && !form->has_digits ? std::optional(form->before) : std::nullopt;
}

}  // namespace foliant::hosts::access
