#include "hosts/access/sql/join.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "automation/text.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

using Join = StoredQuery::Join;

constexpr std::size_t most_records = 20'000'000;  // more is a product that nobody wanted

bool holds_table(const Relation& relation, std::string_view table) {
    return std::ranges::any_of(relation.columns, [&](const Column& column) {
        return automation::equal_ignoring_case(column.tables.front(), table);
    });
}

std::size_t find_source(const std::vector<Relation>& relations, std::string_view table) {
    const auto found = std::ranges::find_if(
        relations, [&](const Relation& relation) { return holds_table(relation, table); });
    if (found == relations.end())
        throw SqlError("it joins \"" + std::string(table) + "\", which is not among its tables");
    return static_cast<std::size_t>(found - relations.begin());
}

/// The columns that have to be equal, left and right, and what else has to hold.
struct Condition {
    std::vector<std::pair<std::size_t, std::size_t>> equal;
    std::vector<ExpressionPtr> rest;
};

void split(const ExpressionPtr& expression, std::size_t left_columns, Condition& condition) {
    if (expression->kind == Expression::Kind::binary && expression->name == "and") {
        for (const ExpressionPtr& part : expression->parts)
            split(part, left_columns, condition);
        return;
    }
    const bool is_equality = expression->kind == Expression::Kind::binary && expression->name == "=" &&
                             expression->parts[0]->kind == Expression::Kind::column &&
                             expression->parts[1]->kind == Expression::Kind::column;
    if (is_equality) {
        const auto [low, high] = std::minmax({expression->parts[0]->column, expression->parts[1]->column});
        if (low < left_columns && high >= left_columns) {
            condition.equal.emplace_back(low, high - left_columns);
            return;
        }
    }
    condition.rest.push_back(expression);
}

Row joined(const Row& left, const Row& right) {
    Row row;
    row.reserve(left.size() + right.size());
    row.insert(row.end(), left.begin(), left.end());
    row.insert(row.end(), right.begin(), right.end());
    return row;
}

void add(Relation& result, Row row) {
    if (result.rows.size() >= most_records) throw SqlError("it has too many records");
    result.rows.push_back(std::move(row));
}

/// The records of both, side by side; with `keeps_left` also those of the left that have no partner.
Relation combine(const Relation& left, const Relation& right, const std::string& condition_text,
                 bool keeps_left) {
    Relation result;
    result.columns = left.columns;
    result.columns.insert(result.columns.end(), right.columns.begin(), right.columns.end());
    Condition condition;
    if (!condition_text.empty())
        split(bind_names(parse_expression(condition_text), {.columns = result.columns}), left.columns.size(),
              condition);
    std::map<Row, std::vector<const Row*>, LessRow> partners;
    for (const Row& row : right.rows) {
        Row key;
        for (const auto& [ignored, column] : condition.equal)
            key.push_back(row[column]);
        if (std::ranges::none_of(key, is_null)) partners[std::move(key)].push_back(&row);
    }
    const Row nothing(right.columns.size());
    for (const Row& row : left.rows) {
        Row key;
        for (const auto& [column, ignored] : condition.equal)
            key.push_back(row[column]);
        bool has_partner = false;
        const auto found = partners.find(key);
        if (found != partners.end())
            for (const Row* other : found->second) {
                Row both = joined(row, *other);
                const bool fits = std::ranges::all_of(condition.rest, [&](const ExpressionPtr& part) {
                    return truth_of(evaluate(*part, both)).value_or(false);
                });
                if (!fits) continue;
                has_partner = true;
                add(result, std::move(both));
            }
        if (keeps_left && !has_partner) add(result, joined(row, nothing));
    }
    return result;
}

void replace_by(std::vector<Relation>& relations, std::size_t first, std::size_t second, Relation both) {
    relations[std::min(first, second)] = std::move(both);
    relations.erase(relations.begin() + static_cast<std::ptrdiff_t>(std::max(first, second)));
}

/// Conditions between the same tables are one join's.
std::vector<Join> gathered(const std::vector<Join>& joins) {
    std::vector<Join> result;
    for (const Join& join : joins) {
        const auto same = std::ranges::find_if(result, [&](const Join& other) {
            return other.kind == join.kind && automation::equal_ignoring_case(other.left, join.left) &&
                   automation::equal_ignoring_case(other.right, join.right);
        });
        if (same == result.end())
            result.push_back(join);
        else
            same->condition = "(" + same->condition + ") And (" + join.condition + ")";
    }
    return result;
}

void join_inner(std::vector<Relation>& relations, const Join& join) {
    const std::size_t left = find_source(relations, join.left);
    const std::size_t right = find_source(relations, join.right);
    if (left == right) return keep_where(relations[left], join.condition);
    replace_by(relations, left, right, combine(relations[left], relations[right], join.condition, false));
}

/// Inner joins were made before: what is joined to a table that may be missing goes with that table.
void join_outer(std::vector<Relation>& relations, const Join& join) {
    const bool to_the_left = join.kind == Join::Kind::left;
    const std::size_t kept = find_source(relations, to_the_left ? join.left : join.right);
    const std::size_t other = find_source(relations, to_the_left ? join.right : join.left);
    if (kept == other) throw SqlError("its outer joins can be made in more than one order");
    replace_by(relations, kept, other, combine(relations[kept], relations[other], join.condition, true));
}

/// Whether an inner join takes a table that an outer join may leave without a record.
void require_one_meaning(const std::vector<Join>& joins) {
    for (const Join& outer : joins) {
        if (outer.kind == Join::Kind::inner) continue;
        const std::string& kept = outer.kind == Join::Kind::left ? outer.left : outer.right;
        const std::string& optional = outer.kind == Join::Kind::left ? outer.right : outer.left;
        for (const Join& join : joins) {
            const auto takes = [&](const std::string& table) {
                return automation::equal_ignoring_case(join.left, table) ||
                       automation::equal_ignoring_case(join.right, table);
            };
            if (&join != &outer && takes(optional) && takes(kept))
                throw SqlError("its outer joins can be made in more than one order");
        }
    }
}

}  // namespace

Relation join_sources(std::vector<Relation> sources, const std::vector<StoredQuery::Join>& joins) {
    const std::vector<Join> all = gathered(joins);
    require_one_meaning(all);
    for (const Join& join : all)
        if (join.kind == Join::Kind::inner) join_inner(sources, join);
    std::vector<Join> outer;
    std::ranges::copy_if(all, std::back_inserter(outer),
                         [](const Join& join) { return join.kind != Join::Kind::inner; });
    for (const Join& join : outer)
        join_outer(sources, join);
    while (sources.size() > 1)
        replace_by(sources, 0, 1, combine(sources[0], sources[1], "", false));
    return std::move(sources.front());
}

}  // namespace foliant::hosts::access
