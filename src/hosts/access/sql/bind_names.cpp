#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "automation/text.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

using Part = Expression::Kind;

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

bool has_column(std::span<const Column> columns, const Expression& name) {
    return std::ranges::any_of(columns, [&](const Column& column) { return is_meant(column, name); });
}

/// Raises SqlError where several columns are meant, and where none is.
std::size_t find_column(const Expression& name, std::span<const Column> columns) {
    const auto meant = [&](const Column& column) { return is_meant(column, name); };
    const auto found = std::ranges::find_if(columns, meant);
    if (found == columns.end())
        throw SqlError("there is no column " + full_name(name) +
                       ", and nobody to ask for a parameter of that name. The columns are " +
                       names_of(columns));
    if (std::find_if(found + 1, columns.end(), meant) != columns.end())
        throw SqlError("more than one table has a column " + full_name(name) +
                       ". Write the table before it: [Table].[Column]");
    return static_cast<std::size_t>(found - columns.begin());
}

ExpressionPtr constant(Datum value) {
    return std::make_shared<Expression>(Expression{.value = std::move(value)});
}

/// The value of a column of the nearest record around that has it; null where none has.
ExpressionPtr bind_column_around(const Expression& name, const Surroundings* around) {
    for (; around != nullptr; around = around->further) {
        if (!has_column(around->columns, name)) continue;
        const std::size_t column = find_column(name, around->columns);
        if (around->seen != nullptr) around->seen->insert(column);
        return constant(around->record[column]);
    }
    return nullptr;
}

ExpressionPtr bind_column(const ExpressionPtr& expression, const Scope& scope) {
    if (!has_column(scope.columns, *expression)) {
        const auto output = scope.outputs.find(automation::to_lower(expression->name));
        if (expression->table.empty() && output != scope.outputs.end()) return output->second;
        if (auto value = bind_column_around(*expression, scope.around)) return value;
    }
    expression->column = find_column(*expression, scope.columns);
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

/// A query in parentheses, and what it gave for the records around it so far.
class NestedQuery {
  public:
    NestedQuery(const Expression& query, const Scope& scope)
        : query_(query), columns_(scope.columns), run_(scope.run), around_(scope.around) {
        if (!run_) throw SqlError("the query in parentheses <" + query.name + "> has no place here");
        try_on_nothing();
    }

    bool looks_around() const { return !seen_.empty(); }

    const std::vector<Datum>& values(const Row& record) {
        Row key;
        for (const std::size_t column : seen_)
            key.push_back(record[column]);
        auto found = known_.find(key);
        if (found == known_.end()) found = known_.emplace(std::move(key), work_out(record)).first;
        return found->second;
    }

  private:
    /// Shows at which columns it looks. That it fails on nothing says little, once it has looked.
    void try_on_nothing() {
        const Row nothing(columns_.size());
        try {
            auto values = work_out(nothing, &seen_);
            if (!looks_around()) known_.emplace(Row(), std::move(values));
        } catch (const SqlError&) {
            if (!looks_around()) throw;
            for (std::size_t column = 0; column < columns_.size(); ++column)
                seen_.insert(column);
        }
    }

    std::vector<Datum> work_out(const Row& record, std::set<std::size_t>* seen = nullptr) const {
        const Surroundings around{columns_, record, around_, seen};
        const Relation given = run_(query_.name, &around);
        if (query_.kind != Part::exists && given.columns.size() != 1)
            throw SqlError("the query in parentheses <" + query_.name + "> shows " +
                           std::to_string(given.columns.size()) + " columns where there is room for one");
        std::vector<Datum> values;
        values.reserve(given.rows.size());
        for (const Row& row : given.rows)
            values.push_back(row.front());
        return values;
    }

    Expression query_;
    std::span<const Column> columns_;
    QueryRunner run_;
    const Surroundings* around_;
    std::set<std::size_t> seen_;  ///< the columns that tell records around it apart
    std::map<Row, std::vector<Datum>, LessRow> known_;
};

ExpressionPtr bind_query(const ExpressionPtr& expression, const Scope& scope) {
    for (ExpressionPtr& part : expression->parts)
        part = bind_names(part, scope);
    const auto query = std::make_shared<NestedQuery>(*expression, scope);
    expression->values = [query](const Row& record) -> const std::vector<Datum>& {
        return query->values(record);
    };
    return query->looks_around() || expression->kind == Part::in_query ? expression
                                                                       : constant(evaluate(*expression, {}));
}

}  // namespace

ExpressionPtr bind_names(const ExpressionPtr& expression, const Scope& scope) {
    if (expression->kind == Part::query || expression->kind == Part::in_query ||
        expression->kind == Part::exists)
        return bind_query(expression, scope);
    if (expression->kind == Part::column) return bind_column(expression, scope);
    if (expression->kind == Part::constant) require_constant(*expression, scope);
    if (expression->kind == Part::function) require_function(*expression, scope);
    for (ExpressionPtr& part : expression->parts)
        part = bind_names(part, scope);
    return expression;
}

}  // namespace foliant::hosts::access
