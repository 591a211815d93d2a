#include "hosts/access/report/locale_forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <clocale>
#include <cmath>
#include <ctime>
#include <langinfo.h>
#include <optional>
#include <string_view>

#include "automation/text.h"
#include "hosts/access/report/own_formats.h"
#include "hosts/access/sql/dates.h"

namespace foliant::hosts::access {
namespace {

bool is_nobodys(const char* locale) {
    const std::string_view name = locale == nullptr ? "C" : locale;
    return name == "C" || name == "POSIX" || name.starts_with("C.");
}

std::string replaced(std::string text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

/// "ja" as it stands alone: "Ja".
std::string word(const char* text, const char* otherwise) {
    std::string result = text == nullptr || *text == '\0' ? otherwise : text;
    if (result[0] >= 'a' && result[0] <= 'z') result[0] = static_cast<char>(result[0] - 'a' + 'A');
    return result;
}

template <class... Format>
std::string digits_of(double number, Format... format) {
    std::array<char, 512> buffer{};
    const auto [end, problem] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format...);
    return {buffer.data(), end};
}

std::string localized(const std::string& digits, const LocaleForms& forms) {
    return replaced(digits, ".", forms.decimal_point);
}

/// Digits such as "-1234.5" with signs between thousands.
std::string grouped(std::string digits, const LocaleForms& forms) {
    const std::size_t point = digits.find('.');
    const std::size_t first = digits.starts_with('-') ? 1 : 0;
    std::string whole = digits.substr(first, point == std::string::npos ? point : point - first);
    for (std::size_t at = whole.size(); at > 3;) {
        at -= 3;
        whole.insert(at, forms.thousands);
    }
    const std::string fraction =
        point == std::string::npos ? "" : forms.decimal_point + digits.substr(point + 1);
    return digits.substr(0, first) + whole + fraction;
}

/// An amount with so many decimals, a half rounded away from zero.
std::string money_digits(std::int64_t ten_thousandths, int decimals) {
    const bool is_negative = ten_thousandths < 0;
    auto rest = is_negative ? -static_cast<std::uint64_t>(ten_thousandths)
                            : static_cast<std::uint64_t>(ten_thousandths);
    std::uint64_t unit = 1;
    for (int i = std::clamp(decimals, 0, 4); i < 4; ++i)
        unit *= 10;
    rest = (rest + unit / 2) / unit;
    std::string digits = std::to_string(rest);
    const auto shown_decimals = static_cast<std::size_t>(std::clamp(decimals, 0, 4));
    if (digits.size() <= shown_decimals) digits.insert(0, shown_decimals + 1 - digits.size(), '0');
    if (shown_decimals > 0) digits.insert(digits.size() - shown_decimals, ".");
    return (is_negative && rest != 0 ? "-" : "") + digits;
}

std::string with_currency(const std::string& digits, const LocaleForms& forms) {
    std::string amount = grouped(digits, forms);
    if (forms.currency.empty()) return amount;
    const bool is_negative = amount.starts_with('-');
    if (is_negative) amount.erase(0, 1);
    const std::string space = forms.currency_has_space ? "\u00A0" : "";
    amount = forms.currency_precedes ? forms.currency + space + amount : amount + space + forms.currency;
    return (is_negative ? "-" : "") + amount;
}

std::string fixed(double number, int decimals) {
    return digits_of(number, std::chars_format::fixed, decimals);
}

std::string shown_money(const Datum& datum, int decimals, const LocaleForms& forms) {
    if (decimals < 0) decimals = forms.currency_decimals;
    if (const auto* money = std::get_if<Money>(&datum); money != nullptr && decimals <= 4)
        return with_currency(money_digits(money->ten_thousandths, decimals), forms);
    return with_currency(fixed(number_in(datum).value_or(0), decimals), forms);
}

std::string formatted(const CalendarDate& parts, const std::string& pattern) {
    std::tm moment{};
    moment.tm_year = static_cast<int>(parts.year - 1900);
    moment.tm_mon = parts.month - 1;
    moment.tm_mday = parts.day;
    moment.tm_wday = parts.weekday;
    moment.tm_hour = parts.hour;
    moment.tm_min = parts.minute;
    moment.tm_sec = parts.second;
    std::array<char, 256> buffer{};
    return {buffer.data(), std::strftime(buffer.data(), buffer.size(), pattern.c_str(), &moment)};
}

std::string shown_date(Date date, const std::string& own_format, const LocaleForms& forms) {
    const CalendarDate parts = calendar_date(date);
    const std::string format = automation::to_lower(own_format);
    const bool has_name = format.ends_with(" date") || format.ends_with(" time");
    if (const auto text = has_name || format.empty() ? std::nullopt : date_by(own_format, parts))
        return *text;
    if (format.ends_with(" date") && format != "general date") return formatted(parts, forms.date);
    if (format.ends_with(" time")) return formatted(parts, format == "short time" ? "%H:%M" : forms.time);
    if (!parts.has_time) return formatted(parts, forms.date);
    return formatted(parts, parts.has_day ? forms.date + " " + forms.time : forms.time);
}

std::string shown_truth(bool truth, const std::string& own_format, const LocaleForms& forms) {
    const std::string format = automation::to_lower(own_format);
    if (const auto text = truth_by(own_format, truth)) return *text;
    if (format == "true/false") return truth ? "True" : "False";
    if (format == "on/off") return truth ? "On" : "Off";
    return truth ? forms.yes : forms.no;
}

/// A number by one of the formats that have a name; empty for none of them.
std::string shown_by_name(const Datum& datum, const std::string& format, int decimals,
                          const LocaleForms& forms) {
    const int usual = decimals < 0 ? 2 : decimals;
    const double number = number_in(datum).value_or(0);
    if (format == "currency") return shown_money(datum, decimals, forms);
    if (format == "percent") return localized(fixed(number * 100, usual), forms) + "%";
    if (format == "fixed") return localized(fixed(number, usual), forms);
    if (format == "standard") return grouped(fixed(number, usual), forms);
    if (format == "scientific")
        return localized(digits_of(number, std::chars_format::scientific, usual), forms);
    return {};
}

std::string shown_number(const Datum& datum, const Column& column, const LocaleForms& forms) {
    const std::string format = automation::to_lower(column.format);
    if (std::string by_name = shown_by_name(datum, format, column.decimals, forms); !by_name.empty())
        return by_name;
    constexpr std::size_t most_digits = 16;  // of which a double keeps count
    const auto* decimal = std::get_if<Decimal>(&datum);
    const bool is_own = !format.empty() && format != "general number" &&
                        (decimal == nullptr || decimal->digits.size() <= most_digits);
    if (const auto text =
            is_own ? number_by(column.format, number_in(datum).value_or(0), forms) : std::nullopt)
        return *text;
    if (std::holds_alternative<Money>(datum) && format != "general number")
        return shown_money(datum, column.decimals, forms);
    if (const auto* number = std::get_if<double>(&datum)) {
        constexpr int digits_of_single = 7;
        constexpr int digits_of_double = 15;
        return localized(digits_of(*number, std::chars_format::general,
                                   column.kind == Kind::single ? digits_of_single : digits_of_double),
                         forms);
    }
    return localized(text_of(datum).value_or(""), forms);
}

std::string shown_size(std::size_t bytes) {
    if (bytes == 0) return "(attachments)";
    if (bytes < 1024) return "(binary data, " + std::to_string(bytes) + " bytes)";
    return "(binary data, " + std::to_string((bytes + 512) / 1024) + " KB)";
}

}  // namespace

LocaleForms LocaleForms::of_process() {
    LocaleForms forms;
    if (!is_nobodys(std::setlocale(LC_TIME, nullptr))) {
        // Two digits do not say which century.
        forms.date = replaced(replaced(::nl_langinfo(D_FMT), "%D", "%m/%d/%Y"), "%y", "%Y");
        forms.time = ::nl_langinfo(T_FMT);
    }
    if (const char* point = ::nl_langinfo(RADIXCHAR); *point != '\0') forms.decimal_point = point;
    if (!is_nobodys(std::setlocale(LC_MONETARY, nullptr))) {
        const std::lconv& money = *std::localeconv();
        forms.thousands = money.mon_thousands_sep;
        forms.currency = money.currency_symbol;
        forms.currency_precedes = money.p_cs_precedes == 1;
        forms.currency_has_space = money.p_sep_by_space != 0;
        if (money.frac_digits != CHAR_MAX)
            forms.currency_decimals = static_cast<unsigned char>(money.frac_digits);
    }
    if (!is_nobodys(std::setlocale(LC_MESSAGES, nullptr))) {
        forms.yes = word(::nl_langinfo(YESSTR), "Yes");
        forms.no = word(::nl_langinfo(NOSTR), "No");
    }
    return forms;
}

std::string shown(const Datum& datum, const Column& column, const LocaleForms& forms) {
    if (is_null(datum)) return {};
    if (const auto* text = std::get_if<std::string>(&datum)) return *text;
    if (const auto* truth = std::get_if<bool>(&datum)) return shown_truth(*truth, column.format, forms);
    if (const auto* date = std::get_if<Date>(&datum)) return shown_date(*date, column.format, forms);
    if (const auto* opaque = std::get_if<Opaque>(&datum)) return shown_size(opaque->bytes);
    return shown_number(datum, column, forms);
}

}  // namespace foliant::hosts::access
