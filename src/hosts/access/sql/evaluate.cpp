#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

#include "automation/text.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

using Part = Expression::Kind;
using Group = std::span<const Row* const>;

bool same_name(std::string_view left, std::string_view right) {
    return automation::equal_ignoring_case(left, right);
}

std::string names_of(std::span<const Column> columns) {
    constexpr std::size_t most = 40;
    std::string names;
    for (const Column& column : columns.first(std::min(columns.size(), most)))
        if (!column.name.empty()) names += (names.empty() ? "[" : ", [") + column.name + "]";
    return columns.size() > most ? names + " ..." : names;
}

std::string full_name(const Expression& column) {
    return (column.table.empty() ? "" : "[" + column.table + "].") + "[" + column.name + "]";
}

bool is_meant(const Column& column, const Expression& name) {
    if (!same_name(column.name, name.name)) return false;
    return name.table.empty() || std::ranges::any_of(column.tables, [&](const std::string& table) {
               return same_name(table, name.table);
           });
}

std::size_t find_column(const Expression& name, const Scope& scope) {
    const auto meant = [&](const Column& column) { return is_meant(column, name); };
    const auto found = std::ranges::find_if(scope.columns, meant);
    if (found == scope.columns.end())
        throw SqlError("there is no column " + full_name(name) +
                       ", and nobody to ask for a parameter of that name. The columns are " +
                       names_of(scope.columns));
    if (std::find_if(found + 1, scope.columns.end(), meant) != scope.columns.end())
        throw SqlError("more than one table has a column " + full_name(name) +
                       ". Write the table before it: [Table].[Column]");
    return static_cast<std::size_t>(found - scope.columns.begin());
}

ExpressionPtr bind_column(const ExpressionPtr& expression, const Scope& scope) {
    if (expression->table.empty()) {
        const bool is_column = std::ranges::any_of(
            scope.columns, [&](const Column& column) { return is_meant(column, *expression); });
        const auto output = scope.outputs.find(automation::to_lower(expression->name));
        if (!is_column && output != scope.outputs.end()) return output->second;
    }
    expression->column = find_column(*expression, scope);
    return expression;
}

void require_constant(const Expression& constant, const Scope& scope) {
    if (!constant.name.empty() && std::ranges::any_of(scope.columns, [&](const Column& column) {
            return same_name(column.name, constant.name);
        }))
        throw SqlError("\"" + constant.name + "\" is a column and a constant. Write [" + constant.name +
                       "] for the column, and True or False for the constant");
}

void require_function(const Expression& call, const Scope& scope) {
    const std::string how_many = " is not called with " + std::to_string(call.parts.size()) + " arguments";
    if (is_aggregate(call.name)) {
        if (!scope.has_groups)
            throw SqlError("\"" + call.name + "\" of many records has no place in a condition");
        if (call.parts.size() != 1) throw SqlError("\"" + call.name + "\"" + how_many);
        return;
    }
    const Function* const function = find_function(call.name);
    if (function == nullptr) throw SqlError("the function \"" + call.name + "\" is not known here");
    if (call.parts.size() < function->fewest || call.parts.size() > function->most)
        throw SqlError("\"" + call.name + "\"" + how_many);
}

Datum truth(std::optional<bool> value) {
    return value ? Datum(*value) : Datum(Null());
}

/// And, Or and Xor as databases have them: what is unknown stays so unless the rest decides.
Datum logic(const std::string& operation, std::optional<bool> left, std::optional<bool> right) {
    if (operation == "xor") return left && right ? Datum(*left != *right) : Datum(Null());
    const bool decides = operation == "or";
    if (left == decides || right == decides) return decides;
    return left && right ? Datum(!decides) : Datum(Null());
}

bool holds(const std::string& comparison, int order) {
    if (comparison == "=") return order == 0;
    if (comparison == "<>") return order != 0;
    if (comparison == "<") return order < 0;
    if (comparison == "<=") return order <= 0;
    if (comparison == ">") return order > 0;
    return order >= 0;
}

std::string required_text(const Datum& datum) {
    auto text = text_of(datum);
    if (!text) throw SqlError("binary data has no text");
    return std::move(*text);
}

std::optional<bool> like(const Datum& text, const Datum& pattern) {
    if (is_null(text) || is_null(pattern)) return std::nullopt;
    return is_like(required_text(text), required_text(pattern));
}

std::optional<bool> negated_if(bool negated, std::optional<bool> value) {
    return value && negated ? !*value : value;
}

Datum evaluate_binary(const Expression& expression, const Row& row, Group group) {
    const std::string& name = expression.name;
    const Datum left = evaluate(*expression.parts[0], row, group);
    if (name == "and" || name == "or") {
        const auto first = truth_of(left);
        if (first == (name == "or")) return *first;
        return logic(name, first, truth_of(evaluate(*expression.parts[1], row, group)));
    }
    const Datum right = evaluate(*expression.parts[1], row, group);
    if (name == "xor") return logic(name, truth_of(left), truth_of(right));
    if (name == "like") return truth(negated_if(expression.negated, like(left, right)));
    if (name == "&") {
        if (is_null(left) && is_null(right)) return Null();
        return required_text(left) + required_text(right);
    }
    if (name.front() != '=' && name.front() != '<' && name.front() != '>')
        return calculate(name, left, right);
    const auto order = compare(left, right);
    return order ? Datum(holds(name, *order)) : Datum(Null());
}

Datum evaluate_unary(const Expression& expression, const Row& row, Group group) {
    const Datum value = evaluate(*expression.parts[0], row, group);
    if (expression.name == "-") return calculate("-", std::int64_t{0}, value);
    return truth(negated_if(true, truth_of(value)));
}

Datum evaluate_between(const Expression& expression, const Row& row, Group group) {
    const Datum value = evaluate(*expression.parts[0], row, group);
    const Datum first = evaluate(*expression.parts[1], row, group);
    const Datum second = evaluate(*expression.parts[2], row, group);
    const auto bounds = compare(first, second);
    const auto low = compare(value, first);
    const auto high = compare(value, second);
    if (!bounds || !low || !high) return Null();
    // The bounds may stand in either order.
    const bool is_inside = *bounds <= 0 ? *low >= 0 && *high <= 0 : *low <= 0 && *high >= 0;
    return is_inside != expression.negated;
}

Datum evaluate_in(const Expression& expression, const Row& row, Group group) {
    const Datum value = evaluate(*expression.parts[0], row, group);
    bool is_unknown = false;
    for (std::size_t i = 1; i < expression.parts.size(); ++i) {
        const auto order = compare(value, evaluate(*expression.parts[i], row, group));
        if (order == 0) return !expression.negated;
        is_unknown = is_unknown || !order;
    }
    return is_unknown ? Datum(Null()) : Datum(expression.negated);
}

Datum evaluate_aggregate(const Expression& call, Group group) {
    std::vector<Datum> values;
    values.reserve(group.size());
    for (const Row* record : group)
        values.push_back(evaluate(*call.parts[0], *record));
    return aggregate(call.name, values);
}

Datum evaluate_function(const Expression& call, const Row& row, Group group) {
    if (is_aggregate(call.name)) return evaluate_aggregate(call, group);
    if (call.name == "iif") {
        const bool chosen = truth_of(evaluate(*call.parts[0], row, group)).value_or(false);
        return evaluate(*call.parts[chosen ? 1 : 2], row, group);
    }
    std::vector<Datum> arguments;
    arguments.reserve(call.parts.size());
    for (const ExpressionPtr& part : call.parts)
        arguments.push_back(evaluate(*part, row, group));
    return find_function(call.name)->apply(arguments);
}

ExpressionPtr constant(Datum value) {
    return std::make_shared<Expression>(Expression{.value = std::move(value)});
}

Relation records_of(const Expression& query, const Scope& scope) {
    const std::string named = "the query in parentheses <" + query.name + ">";
    if (!scope.run) throw SqlError(named + " has no place here");
    Relation records = scope.run(query.name);
    if (records.columns.size() == 1) return records;
    throw SqlError(named + " shows " + std::to_string(records.columns.size()) +
                   " columns where there is room for one");
}

/// The one value that a query gives; Null where it gives none.
ExpressionPtr bind_query(const Expression& query, const Scope& scope) {
    Relation records = records_of(query, scope);
    if (records.rows.size() > 1)
        throw SqlError("the query in parentheses <" + query.name + "> gives " +
                       std::to_string(records.rows.size()) + " records where there is room for one");
    return constant(records.rows.empty() ? Datum(Null()) : std::move(records.rows.front().front()));
}

ExpressionPtr bind_in_query(const Expression& expression, const Scope& scope) {
    auto list =
        std::make_shared<Expression>(Expression{.kind = Part::in_list, .negated = expression.negated});
    list->parts.push_back(bind_names(expression.parts.front(), scope));
    const Relation records = records_of(expression, scope);
    for (const Row& row : std::set<Row, LessRow>(records.rows.begin(), records.rows.end()))
        list->parts.push_back(constant(row.front()));
    return list;
}

}  // namespace

ExpressionPtr bind_names(const ExpressionPtr& expression, const Scope& scope) {
    if (expression->kind == Part::query) return bind_query(*expression, scope);
    if (expression->kind == Part::in_query) return bind_in_query(*expression, scope);
    if (expression->kind == Part::column) return bind_column(expression, scope);
    if (expression->kind == Part::constant) require_constant(*expression, scope);
    if (expression->kind == Part::function) require_function(*expression, scope);
    for (ExpressionPtr& part : expression->parts)
        part = bind_names(part, scope);
    return expression;
}

bool has_aggregate(const Expression& expression) {
    if (expression.kind == Part::function && is_aggregate(expression.name)) return true;
    return std::ranges::any_of(expression.parts,
                               [](const ExpressionPtr& part) { return has_aggregate(*part); });
}

Datum evaluate(const Expression& expression, const Row& row, Group group) {
    switch (expression.kind) {
        case Part::constant:
            return expression.value;
        case Part::column:
            return row[expression.column];
        case Part::function:
            return evaluate_function(expression, row, group);
        case Part::unary:
            return evaluate_unary(expression, row, group);
        case Part::binary:
            return evaluate_binary(expression, row, group);
        case Part::between:
            return evaluate_between(expression, row, group);
        case Part::in_list:
            return evaluate_in(expression, row, group);
        case Part::is_null:
            return is_null(evaluate(*expression.parts[0], row, group)) != expression.negated;
        case Part::query:
        case Part::in_query:
            break;  // binding has put what they give in their place
    }
    return Null();
}

}  // namespace foliant::hosts::access
