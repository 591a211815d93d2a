#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// An expression as it was written: `Country = 'Germany' And City Like 'B*'`.
struct Expression {
    enum class Kind { constant, column, function, unary, binary, between, in_list, is_null, query, in_query };

    Kind kind = Kind::constant;
    Datum value{};  ///< of a constant
    /// Of a column, function or constant; the operator; in lower case, but for columns. The text of a query.
    std::string name{};
    std::string table{};   ///< what stands before a column's name; empty for nothing
    bool negated = false;  ///< Not Like, Not In, Is Not Null ...
    std::vector<std::shared_ptr<Expression>> parts{};
    std::size_t column = 0;  ///< of a column that was found
};
using ExpressionPtr = std::shared_ptr<Expression>;

/// Reads an expression: And, Or, Xor, Not, comparisons, Like, Between, In with a list, Is Null, arithmetic, &,
/// functions, texts, #dates#, numbers, True, False, Null, [names], parentheses, queries in parentheses. Raises SqlError
/// that names what is not understood.
ExpressionPtr parse_expression(std::string_view text);

/// Gives what a query in parentheses gives, by its text.
using QueryRunner = std::function<Relation(const std::string& text)>;

/// What names in an expression stand for.
struct Scope {
    std::span<const Column> columns;
    std::map<std::string, ExpressionPtr> outputs{};  ///< those of the query, bound, by name in lower case
    bool has_groups = false;                         ///< Sum, Count and the like may be asked for
    QueryRunner run{};                               ///< empty where no query may stand
};

/// Finds the columns of an expression, in place; what it gives may hold more than one of the scope's outputs. Queries in
/// it are worked out, once, and become what they give. Raises SqlError for a name that is none or more than one, for an
/// unknown function, and for a query that looks at the record around it.
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
