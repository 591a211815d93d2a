#include <algorithm>
#include <cmath>
#include <optional>

#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

using Part = Expression::Kind;
using Group = std::span<const Row* const>;

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

/// The one value that a query gives; Null where it gives none.
Datum evaluate_query(const Expression& query, const Row& row) {
    const std::vector<Datum>& values = query.values(row);
    if (values.size() > 1)
        throw SqlError("the query in parentheses <" + query.name + "> gives " +
                       std::to_string(values.size()) + " records where there is room for one");
    return values.empty() ? Datum(Null()) : values.front();
}

Datum evaluate_in_query(const Expression& expression, const Row& row, Group group) {
    const Datum value = evaluate(*expression.parts.front(), row, group);
    bool is_unknown = false;
    for (const Datum& other : expression.values(row)) {
        const auto order = compare(value, other);
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

}  // namespace

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
            return evaluate_query(expression, row);
        case Part::in_query:
            return evaluate_in_query(expression, row, group);
        case Part::exists:
            return !expression.values(row).empty();
    }
    return Null();
}

}  // namespace foliant::hosts::access
