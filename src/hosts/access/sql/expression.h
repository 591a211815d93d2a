#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// An expression as it was written: `Country = 'Germany' And City Like 'B*'`.
struct Expression {
    enum class Kind {
        constant,
        column,
        function,
        unary,
        binary,
        between,
        in_list,
        is_null,
        query,
        in_query,
        exists
    };
    /// The first column of what a query gives for the record around it.
    using ValuesFor = std::function<const std::vector<Datum>&(const Row& around)>;

    Kind kind = Kind::constant;
    Datum value{};  ///< of a constant
    /// Of a column, function or constant; the operator; in lower case, but for columns. The text of a query.
    std::string name{};
    std::string table{};   ///< what stands before a column's name; empty for nothing
    bool negated = false;  ///< Not Like, Not In, Is Not Null ...
    std::vector<std::shared_ptr<Expression>> parts{};
    std::size_t column = 0;  ///< of a column that was found
    ValuesFor values{};      ///< of a query that was bound and looks at the record around it
};
using ExpressionPtr = std::shared_ptr<Expression>;

/// Reads an expression: And, Or, Xor, Not, comparisons, Like, Between, In with a list, Is Null, arithmetic, &,
/// functions, texts, #dates#, numbers, True, False, Null, [names], parentheses, queries in parentheses, Exists. Raises
/// SqlError that names what is not understood.
ExpressionPtr parse_expression(std::string_view text);

/// The record around a query in parentheses, at which that query may look.
struct Surroundings {
    std::span<const Column> columns;
    const Row& record;
    const Surroundings* further = nullptr;  ///< those of the query that the record is of
    std::set<std::size_t>* seen = nullptr;  ///< takes the columns that are looked at, where somebody asks
};

/// Gives what a query in parentheses gives, by its text; `around` may be null.
using QueryRunner = std::function<Relation(const std::string& text, const Surroundings* around)>;

/// What names in an expression stand for.
struct Scope {
    std::span<const Column> columns;
    std::map<std::string, ExpressionPtr> outputs{};  ///< those of the query, bound, by name in lower case
    bool has_groups = false;                         ///< Sum, Count and the like may be asked for
    QueryRunner run{};                               ///< empty where no query may stand
    const Surroundings* around = nullptr;            ///< of the query that the expression is of
};

/// Finds the columns of an expression, in place; what it gives may hold more than one of the scope's outputs. Columns of
/// the record around become their values. Queries in it are worked out once and become what they give; those that look
/// at the record around them are worked out once for all records that they cannot tell apart, when these come up: as
/// long, what the scope refers to has to stay. Raises SqlError for a name that is none or more than one, and for an
/// unknown function.
ExpressionPtr bind_names(const ExpressionPtr& expression, const Scope& scope);

/// Whether something asks for Sum, Count, ...
bool has_aggregate(const Expression& expression);

/// The value for a record; `group` are the records that Sum, Count ... are of. Raises SqlError for what cannot be
/// worked out.
Datum evaluate(const Expression& expression, const Row& row, std::span<const Row* const> group = {});

/// Functions of their arguments, by name in lower case; null for an unknown one.
struct Function {
    std::size_t fewest = 0;
    std::size_t most = 0;
    Datum (*apply)(std::span<const Datum>) = nullptr;
};
const Function* find_function(std::string_view name);

/// Sum, Count, Avg, Min, Max, First, Last, by name in lower case.
bool is_aggregate(std::string_view name);
Datum aggregate(std::string_view name, std::span<const Datum> values);

/// Sums, differences, products ...: "+", "-", "*", "/", "\\", "mod", "^".
Datum calculate(std::string_view operation, const Datum& left, const Datum& right);

}  // namespace foliant::hosts::access
