#include "hosts/access/sql/calculate.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

/// What a sum or a product of these two is: exact where both are.
Datum as_kind_of(double value, const Datum& left, const Datum& right) {
    const bool is_date = std::holds_alternative<Date>(left) != std::holds_alternative<Date>(right);
    if (is_date) return Date{value};
    if ((is_money(left) || is_whole(left)) && (is_money(right) || is_whole(right)))
        return is_money(left) || is_money(right) ? money(value) : whole(value);
    return value;
}

constexpr std::array<std::string_view, 7> aggregates{"sum", "count", "avg", "min", "max", "first", "last"};

Datum sum_of(std::span<const Datum* const> values) {
    Datum total = *values.front();
    for (const Datum* value : values.subspan(1))
        total = calculate("+", total, *value);
    return total;
}

}  // namespace

double number(const Datum& datum, const char* what) {
    if (const auto value = number_in(datum)) return *value;
    throw SqlError(std::string(what) + " needs a number, and gets \"" +
                   text_of(datum).value_or("binary data") + "\"");
}

std::string text(const Datum& datum) {
    auto value = text_of(datum);
    if (!value) throw SqlError("binary data has no text");
    return std::move(*value);
}

bool is_whole(const Datum& datum) noexcept {
    return std::holds_alternative<std::int64_t>(datum) || std::holds_alternative<bool>(datum);
}

bool is_money(const Datum& datum) noexcept {
    return std::holds_alternative<Money>(datum);
}

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
