#include "hosts/access/sql/selection.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <span>

#include "automation/text.h"
#include "hosts/access/sql/join.h"

namespace foliant::hosts::access {
namespace {

/// One query at work.
class Run {
  public:
    Run(const Origins& origins, const StoredQuery& query, const std::string& name)
        : origins_(origins), query_(query), name_(name) {}

    Relation result() {
        if (query_.sources.empty()) throw SqlError("it has no tables");
        records_ = join_sources(load_sources(), query_.joins);
        keep_where(records_, query_.where, origins_.run, origins_.around);
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

    bool is_crosstab() const { return query_.kind == StoredQuery::Kind::crosstab; }

    std::vector<Relation> load_sources() {
        std::vector<Relation> sources;
        for (const StoredQuery::Source& source : query_.sources) {
            sources.push_back(records_from(source));
            if (query_.is_distinct_row) number_rows(sources.back());
            for (Column& column : sources.back().columns)
                column.tables = {source.called()};
        }
        return sources;
    }

    Relation records_from(const StoredQuery::Source& source) const {
        if (source.name.empty()) return origins_.run(source.text, nullptr);
        if (auto records = origins_.named(source.name)) return std::move(*records);
        throw SqlError("there is no table or query \"" + source.name +
                       "\" (one that is linked to another file counts as none)");
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
        scope_.run = origins_.run;
        scope_.around = origins_.around;
        if (query_.has_all_columns) add_all_of("");
        for (const StoredQuery::Output& output : query_.outputs) {
            if (const auto table = table_of_star(output.expression))
                add_all_of(*table);
            else if (is_crosstab() && output.role != StoredQuery::Output::Role::beside)
                bind_cells(output);
            else
                outputs_.push_back(bound_output(output));
        }
        if (outputs_.empty()) throw SqlError("it shows no columns");
        if (is_crosstab()) find_headings();
        having_ = bound(query_.having);
        is_grouped_ = is_crosstab() || !query_.groups.empty() || having_ ||
                      std::ranges::any_of(
                          outputs_, [](const Bound& output) { return has_aggregate(*output.expression); });
        for (const StoredQuery::Order& key : query_.orders)
            keys_.push_back(bound(key.expression));
        for (const std::string& group : query_.groups)
            groups_.push_back(bound(group));
    }

    Bound bound_output(const StoredQuery::Output& output) {
        const ExpressionPtr expression = bound(output.expression);
        if (!expression) throw SqlError("it shows a column without an expression");
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
        return {expression, std::move(column)};
    }

    void bind_cells(const StoredQuery::Output& output) {
        if (output.role == StoredQuery::Output::Role::above)
            above_ = bound(output.expression);
        else
            cell_ = bound_output(output);
    }

    /// What stands above the columns of a crosstab: what a list names, in its order, else all that there is.
    void find_headings() {
        if (!above_ || !cell_.expression) throw SqlError("it is a crosstab without columns or values");
        std::set<Row, LessRow> found;
        if (above_->kind == Expression::Kind::in_list) {
            for (std::size_t i = 1; i < above_->parts.size(); ++i)
                headings_.push_back(evaluate(*above_->parts[i], {}));
            above_ = above_->parts.front();
            return;
        }
        for (const Row& record : records_.rows)
            found.insert({evaluate(*above_, record)});
        constexpr std::size_t most = 255;  // as many as a table of Access's may have
        if (found.size() > most)
            throw SqlError("its crosstab would have " + std::to_string(found.size()) + " columns");
        for (const Row& heading : found)
            headings_.push_back(heading.front());
    }

    void add_cells(Row& row, std::span<const Row* const> members) const {
        std::map<Row, std::vector<const Row*>, LessRow> columns;
        for (const Row* record : members)
            columns[{evaluate(*above_, *record)}].push_back(record);
        for (const Datum& heading : headings_) {
            const auto found = columns.find({heading});
            row.push_back(found == columns.end()
                              ? Datum(Null())
                              : evaluate(*cell_.expression, *found->second.front(), found->second));
        }
    }

    void add_cell_columns(Relation& result) const {
        for (const Datum& heading : headings_) {
            Column column = cell_.column;
            column.caption.clear();
            column.name = is_null(heading) ? "<>" : text_of(heading).value_or("");
            result.columns.push_back(std::move(column));
        }
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
        if (is_crosstab()) add_cells(line.row, group);
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
        add_cell_columns(result);
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

    const Origins& origins_;
    const StoredQuery& query_;
    const std::string& name_;
    Relation records_;
    Scope scope_;
    std::vector<Bound> outputs_;
    std::vector<ExpressionPtr> keys_;
    std::vector<ExpressionPtr> groups_;
    ExpressionPtr having_;
    ExpressionPtr above_;  ///< the cells of a crosstab
    Bound cell_;
    std::vector<Datum> headings_;  ///< of its columns
    bool is_grouped_ = false;
};

}  // namespace

Relation select(const Origins& origins, const StoredQuery& query, const std::string& name) {
    return Run(origins, query, name).result();
}

}  // namespace foliant::hosts::access
