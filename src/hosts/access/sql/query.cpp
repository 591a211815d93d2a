#include "hosts/access/sql/query.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

#include "automation/text.h"
#include "hosts/access/sql/expression.h"
#include "hosts/access/sql/join.h"

namespace foliant::hosts::access {
namespace {

constexpr int deepest = 32;  // of queries on queries

struct LessRow {
    bool operator()(const Row& left, const Row& right) const {
        return std::ranges::lexicographical_compare(
            left, right, [](const Datum& a, const Datum& b) { return sort_order(a, b) < 0; });
    }
};

bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::optional<Relation> records_of(Catalogue& catalogue, std::string_view name, int depth);

/// One query at work.
class Run {
  public:
    Run(Catalogue& catalogue, const StoredQuery& query, std::string name, int depth)
        : catalogue_(catalogue), query_(query), name_(std::move(name)), depth_(depth) {}

    Relation result() {
        require_selection();
        records_ = join_sources(load_sources(), query_.joins);
        keep_where(records_, query_.where);
        bind_outputs();
        keep_distinct_rows();
        std::vector<Line> lines = is_grouped_ ? grouped_lines() : plain_lines();
        order(lines);
        return cut(std::move(lines));
    }

  private:
    /// A record of the result, and what it is ordered by.
    struct Line {
        Row row;
        Row keys;
    };
    struct Bound {
        ExpressionPtr expression;
        Column column;
    };

    void require_selection() const {
        using Kind = StoredQuery::Kind;
        const char* problem =
            query_.kind == Kind::action         ? "it changes data and gives no records"
            : query_.kind == Kind::crosstab     ? "it is a crosstab, which is not worked out here"
            : query_.kind == Kind::pass_through ? "it is for a database server, and nobody is asked here"
            : query_.kind == Kind::united       ? "it is a union, which is not worked out here"
            : query_.sources.empty()            ? "it has no tables"
                                                : nullptr;
        if (problem != nullptr) throw SqlError(problem);
    }

    std::vector<Relation> load_sources() {
        std::vector<Relation> sources;
        for (const StoredQuery::Source& source : query_.sources) {
            if (source.name.empty())
                throw SqlError("it has a query in brackets, which is not worked out here");
            auto records = records_of(catalogue_, source.name, depth_ + 1);
            if (!records)
                throw SqlError("there is no table or query \"" + source.name +
                               "\" (one that is linked to another file counts as none)");
            if (query_.is_distinct_row) number_rows(*records);
            for (Column& column : records->columns)
                column.tables = {source.called()};
            sources.push_back(std::move(*records));
        }
        return sources;
    }

    /// A last column without a name, by which records can be told apart.
    static void number_rows(Relation& records) {
        records.columns.push_back({.name = "", .kind = Kind::integer});
        std::int64_t number = 0;
        for (Row& row : records.rows)
            row.emplace_back(++number);
    }
    static bool is_number(const Column& column) { return column.name.empty(); }

    /// All columns, or those of one table: "Products.*".
    void add_all_of(std::string_view table) {
        for (std::size_t i = 0; i < records_.columns.size(); ++i) {
            const Column& column = records_.columns[i];
            if (is_number(column)) continue;
            if (!table.empty() && !automation::equal_ignoring_case(table, column.tables.front())) continue;
            auto reference = std::make_shared<Expression>();
            reference->kind = Expression::Kind::column;
            reference->column = i;
            outputs_.push_back({std::move(reference), column});
        }
    }

    static std::optional<std::string> table_of_star(std::string_view expression) {
        if (!expression.ends_with("*")) return std::nullopt;
        expression.remove_suffix(1);
        if (expression.empty()) return "";
        if (!expression.ends_with(".")) return std::nullopt;
        expression.remove_suffix(1);
        if (expression.starts_with("[") && expression.ends_with("]"))
            expression = expression.substr(1, expression.size() - 2);
        return std::string(expression);
    }

    void bind_outputs() {
        scope_.columns = records_.columns;
        scope_.has_groups = true;
        if (query_.has_all_columns) add_all_of("");
        for (const StoredQuery::Output& output : query_.outputs) {
            if (const auto table = table_of_star(output.expression))
                add_all_of(*table);
            else
                add_output(output);
        }
        if (outputs_.empty()) throw SqlError("it shows no columns");
        having_ = bound(query_.having);
        is_grouped_ = !query_.groups.empty() || having_ ||
                      std::ranges::any_of(
                          outputs_, [](const Bound& output) { return has_aggregate(*output.expression); });
        for (const StoredQuery::Order& key : query_.orders)
            keys_.push_back(bound(key.expression));
        for (const std::string& group : query_.groups)
            groups_.push_back(bound(group));
    }

    void add_output(const StoredQuery::Output& output) {
        const ExpressionPtr expression = bound(output.expression);
        Column column;
        if (expression->kind == Expression::Kind::column)
            column = records_.columns[expression->column];
        else
            column.name = "Expr" + std::to_string(1000 + outputs_.size());
        if (!output.name.empty()) {
            column.name = output.name;
            column.caption.clear();
            scope_.outputs[automation::to_lower(output.name)] = expression;
        }
        outputs_.push_back({expression, std::move(column)});
    }

    ExpressionPtr bound(std::string_view text) const {
        return is_blank(text) ? nullptr : bind_names(parse_expression(text), scope_);
    }

    Line line_of(const Row& record, std::span<const Row* const> group = {}) const {
        Line line;
        for (const Bound& output : outputs_)
            line.row.push_back(evaluate(*output.expression, record, group));
        for (const ExpressionPtr& key : keys_)
            line.keys.push_back(evaluate(*key, record, group));
        return line;
    }

    std::vector<Line> plain_lines() const {
        std::vector<Line> lines;
        lines.reserve(records_.rows.size());
        for (const Row& record : records_.rows)
            lines.push_back(line_of(record));
        return lines;
    }

    std::vector<Line> grouped_lines() const {
        std::map<Row, std::vector<const Row*>, LessRow> groups;
        for (const Row& record : records_.rows) {
            Row key;
            for (const ExpressionPtr& part : groups_)
                key.push_back(evaluate(*part, record));
            groups[std::move(key)].push_back(&record);
        }
        const Row nothing(records_.columns.size());
        if (groups.empty() && groups_.empty()) groups[{}];
        std::vector<Line> lines;
        for (const auto& [key, members] : groups) {
            const Row& first = members.empty() ? nothing : *members.front();
            if (having_ && !truth_of(evaluate(*having_, first, members)).value_or(false)) continue;
            lines.push_back(line_of(first, members));
        }
        return lines;
    }

    int order_of(const Line& left, const Line& right) const {
        for (std::size_t i = 0; i < keys_.size(); ++i)
            if (const int order = sort_order(left.keys[i], right.keys[i]); order != 0)
                return query_.orders[i].descending ? -order : order;
        return 0;
    }

    void order(std::vector<Line>& lines) const {
        if (!keys_.empty())
            std::ranges::stable_sort(
                lines, [&](const Line& left, const Line& right) { return order_of(left, right) < 0; });
    }

    /// Of records that differ only in tables of which nothing is shown, one is kept.
    void keep_distinct_rows() {
        if (!query_.is_distinct_row || is_grouped_) return;
        std::vector<std::size_t> numbers;
        for (std::size_t i = 0; i < records_.columns.size(); ++i) {
            const Column& column = records_.columns[i];
            const bool is_shown = std::ranges::any_of(outputs_, [&](const Bound& output) {
                return shows(*output.expression, column.tables.front());
            });
            if (is_number(column) && is_shown) numbers.push_back(i);
        }
        std::set<Row, LessRow> seen;
        std::erase_if(records_.rows, [&](const Row& row) {
            Row key;
            for (const std::size_t number : numbers)
                key.push_back(row[number]);
            return !seen.insert(std::move(key)).second;
        });
    }

    bool shows(const Expression& expression, const std::string& table) const {
        if (expression.kind == Expression::Kind::column)
            return records_.columns[expression.column].tables.front() == table;
        return std::ranges::any_of(expression.parts,
                                   [&](const ExpressionPtr& part) { return shows(*part, table); });
    }

    /// Those that are shown once and are among the first; equals of the last one count as that.
    Relation cut(std::vector<Line> lines) const {
        if (query_.is_distinct) {
            std::set<Row, LessRow> seen;
            std::erase_if(lines, [&](const Line& line) { return !seen.insert(line.row).second; });
        }
        if (!query_.top.empty()) {
            std::size_t count = top_count(lines.size());
            while (count > 0 && count < lines.size() && !keys_.empty() &&
                   order_of(lines[count - 1], lines[count]) == 0)
                ++count;
            lines.resize(std::min(count, lines.size()));
        }
        Relation result;
        for (const Bound& output : outputs_) {
            result.columns.push_back(output.column);
            result.columns.back().tables.push_back(name_);
        }
        result.rows.reserve(lines.size());
        for (Line& line : lines)
            result.rows.push_back(std::move(line.row));
        return result;
    }

    std::size_t top_count(std::size_t all) const {
        const auto number = number_in(evaluate(*bound(query_.top), {}));
        if (!number || *number < 0) throw SqlError("\"Top " + query_.top + "\" is no number of records");
        return static_cast<std::size_t>(
            query_.top_is_percent ? std::ceil(*number / 100 * static_cast<double>(all)) : *number);
    }

    Catalogue& catalogue_;
    const StoredQuery& query_;
    std::string name_;
    int depth_;
    Relation records_;
    Scope scope_;
    std::vector<Bound> outputs_;
    std::vector<ExpressionPtr> keys_;
    std::vector<ExpressionPtr> groups_;
    ExpressionPtr having_;
    bool is_grouped_ = false;
};

Relation run_named(Catalogue& catalogue, const StoredQuery& query, const std::string& name, int depth) {
    try {
        if (depth > deepest) throw SqlError("it takes its records from itself");
        return Run(catalogue, query, name, depth).result();
    } catch (const SqlError& failure) {
        // The innermost query is the one to look at.
        if (std::string_view(failure.what()).starts_with("The query ")) throw;
        throw SqlError("The query \"" + name + "\" cannot be worked out: " + failure.what());
    }
}

std::optional<Relation> records_of(Catalogue& catalogue, std::string_view name, int depth) {
    if (auto records = catalogue.table(name)) return records;
    if (const auto query = catalogue.query(name))
        return run_named(catalogue, *query, std::string(name), depth);
    return std::nullopt;
}

}  // namespace

std::optional<Relation> records_of(Catalogue& catalogue, std::string_view name) {
    return records_of(catalogue, name, 0);
}

Relation run_query(Catalogue& catalogue, const StoredQuery& query, const std::string& name) {
    return run_named(catalogue, query, name, 0);
}

void keep_where(Relation& relation, std::string_view condition) {
    if (is_blank(condition)) return;
    const ExpressionPtr bound = bind_names(parse_expression(condition), {.columns = relation.columns});
    std::erase_if(relation.rows,
                  [&](const Row& row) { return !truth_of(evaluate(*bound, row)).value_or(false); });
}

void apply_filter(Relation& relation, const StoredQuery& filter, const std::string& name) {
    try {
        if (filter.kind != StoredQuery::Kind::select || !filter.groups.empty() || !filter.having.empty() ||
            !filter.top.empty())
            throw SqlError("it does more than to choose records by a condition");
        keep_where(relation, filter.where);
        for (auto key = filter.orders.rbegin(); key != filter.orders.rend(); ++key) {
            const ExpressionPtr bound =
                bind_names(parse_expression(key->expression), {.columns = relation.columns});
            std::ranges::stable_sort(relation.rows, [&](const Row& left, const Row& right) {
                const int order = sort_order(evaluate(*bound, left), evaluate(*bound, right));
                return key->descending ? order > 0 : order < 0;
            });
        }
    } catch (const SqlError& failure) {
        throw SqlError("The query \"" + name + "\" cannot be used as a filter: " + failure.what());
    }
}

}  // namespace foliant::hosts::access
