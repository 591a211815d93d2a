#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Tables, and the expressions and queries over them, in the dialect of Access; knows no database and no page.
namespace foliant::hosts::access {

/// An expression, a condition or a query that is not understood or cannot be worked out; `what()` names the
/// piece and says what to do, for people.
struct SqlError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Null {
    bool operator==(const Null&) const = default;
};
/// An amount of money, exact to its fourth decimal.
struct Money {
    std::int64_t ten_thousandths = 0;
    bool operator==(const Money&) const = default;
};
/// A number of up to 28 digits, as it is written: "-12.50".
struct Decimal {
    std::string digits;
    bool operator==(const Decimal&) const = default;
};
/// A moment, in days since 30 December 1899; before that the fraction still counts forwards.
struct Date {
    double days = 0;
    bool operator==(const Date&) const = default;
};
/// What cannot be shown as a text: a picture, a file, binary data.
struct Opaque {
    std::size_t bytes = 0;
    bool operator==(const Opaque&) const = default;
};

/// One field of a record. Text is UTF-8.
using Datum = std::variant<Null, bool, std::int64_t, double, Money, Decimal, Date, std::string, Opaque>;

/// What a column was declared as, where that decides how its values are shown.
enum class Kind { computed, boolean, integer, single, real, money, decimal, date, text, memo, opaque };

struct Column {
    std::string name{};
    Kind kind = Kind::computed;
    std::vector<std::string> tables{};  ///< what may stand before its name: table, alias, query
    std::string caption{};              ///< its heading; empty where that is its name
    std::string format{};               ///< "Currency", "Short Date" ...; empty for the usual one
    int decimals = -1;                  ///< how many to show; -1 for as many as it takes
    bool has_formats = false;           ///< its texts are kept with formats, which are not shown
};

using Row = std::vector<Datum>;

/// What a table or a query holds.
struct Relation {
    std::vector<Column> columns;
    std::vector<Row> rows;
};

inline bool is_null(const Datum& datum) noexcept {
    return std::holds_alternative<Null>(datum);
}

/// The number behind a number, a date or a truth value (True is -1); nothing for anything else.
std::optional<double> number_in(const Datum& datum);

/// The value as `&` joins it to a text, the same on every machine: "12.5", "1996-07-04", "" for Null. Nothing for
/// what is opaque.
std::optional<std::string> text_of(const Datum& datum);

/// A truth value or a number as a condition takes it; nothing for Null. Raises SqlError for anything else.
std::optional<bool> truth_of(const Datum& datum);

/// Less, equal or greater as -1, 0 and 1; texts without regard to case, in the order of the user's language.
/// Nothing when one is Null. Raises SqlError for what cannot be compared, such as a text with a number.
std::optional<int> compare(const Datum& left, const Datum& right);

/// An order for sorting and grouping, in which anything can be compared; Null comes first.
int sort_order(const Datum& left, const Datum& right);

/// An order for records, part by part.
struct LessRow {
    bool operator()(const Row& left, const Row& right) const;
};

/// Whether a text fits a pattern of `Like`: * ? # [a-z] [!a-z], without regard to case. Raises SqlError for a
/// pattern with an open bracket.
bool is_like(std::string_view text, std::string_view pattern);

}  // namespace foliant::hosts::access
