#include "hosts/access/sql/query.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "automation/text.h"
#include "hosts/access/sql/selection.h"

namespace foliant::hosts::access {
namespace {

constexpr int deepest = 32;  // of queries on queries

std::optional<Relation> records_of(Catalogue& catalogue, const std::string& name, int depth);
Relation run_named(Catalogue& catalogue, const StoredQuery& query, const std::string& name, int depth,
                   const Surroundings* around);

/// Reads every table once, however often a query on it is worked out.
class Remembered : public Catalogue {
  public:
    explicit Remembered(Catalogue& catalogue) : catalogue_(catalogue) {}

    std::optional<Relation> table(std::string_view name) override {
        return known(tables_, name, [&] { return catalogue_.table(name); });
    }
    std::optional<StoredQuery> query(std::string_view name) override {
        return known(queries_, name, [&] { return catalogue_.query(name); });
    }

  private:
    template <class Known, class Read>
    static typename Known::mapped_type known(Known& all, std::string_view name, Read read) {
        std::string key = automation::to_lower(name);
        auto found = all.find(key);
        if (found == all.end()) found = all.emplace(std::move(key), read()).first;
        return found->second;
    }

    Catalogue& catalogue_;
    std::map<std::string, std::optional<Relation>> tables_;
    std::map<std::string, std::optional<StoredQuery>> queries_;
};

/// A query's text on one line, as messages name it.
std::string on_one_line(const std::string& text) {
    std::string line;
    for (const char sign : text)
        if (const bool is_space = std::isspace(static_cast<unsigned char>(sign)) != 0; !is_space)
            line += sign;
        else if (!line.ends_with(' '))
            line += ' ';
    return line;
}

/// A query that has no name but its text.
Relation run_text(Catalogue& catalogue, const std::string& text, int depth, const Surroundings* around) {
    try {
        if (depth > deepest) throw SqlError("it is nested too deeply");
        return run_named(catalogue, parse_query(text), "", depth, around);
    } catch (const SqlError& failure) {
        const std::string_view said = failure.what();
        if (said.starts_with("The query ") || said.starts_with("its part ")) throw;
        throw SqlError("its part <" + on_one_line(text) + "> cannot be worked out: " + failure.what());
    }
}

void order_by(Relation& relation, const std::vector<StoredQuery::Order>& orders) {
    // The first key decides: it comes last, and leaves equals as the others have put them.
    for (auto key = orders.rbegin(); key != orders.rend(); ++key) {
        const ExpressionPtr bound =
            bind_names(parse_expression(key->expression), {.columns = relation.columns});
        std::ranges::stable_sort(relation.rows, [&](const Row& left, const Row& right) {
            const int order = sort_order(evaluate(*bound, left), evaluate(*bound, right));
            return key->descending ? order > 0 : order < 0;
        });
    }
}

/// The names are those of the first; a column of which the parts are of several kinds is shown as its values are.
void append(Relation& all, Relation part) {
    if (all.columns.size() != part.columns.size())
        throw SqlError("the queries that it unites show " + std::to_string(all.columns.size()) + " and " +
                       std::to_string(part.columns.size()) + " columns");
    for (std::size_t i = 0; i < all.columns.size(); ++i) {
        Column& column = all.columns[i];
        if (column.kind != part.columns[i].kind) column.kind = Kind::computed;
        if (column.format != part.columns[i].format) column.format.clear();
        column.has_formats = column.has_formats || part.columns[i].has_formats;
    }
    std::ranges::move(part.rows, std::back_inserter(all.rows));
}

Relation unite(Catalogue& catalogue, const StoredQuery& query, const std::string& name, int depth,
               const Surroundings* around) {
    std::optional<Relation> all;
    for (const StoredQuery::Source& source : query.sources) {
        Relation part = run_text(catalogue, source.text, depth + 1, around);
        if (all)
            append(*all, std::move(part));
        else
            all = std::move(part);
    }
    if (!all) throw SqlError("it unites no queries");
    if (query.is_distinct) {
        std::set<Row, LessRow> seen;
        std::erase_if(all->rows, [&](const Row& row) { return !seen.insert(row).second; });
    }
    order_by(*all, query.orders);
    for (Column& column : all->columns)
        column.tables.push_back(name);
    return std::move(*all);
}

std::string list_of(const std::vector<std::string>& parameters) {
    std::string list;
    for (const std::string& parameter : parameters)
        list += (list.empty() ? "[" : ", [") + parameter + "]";
    return list;
}

/// Raises SqlError for a query that gives no records here.
void require_records(const StoredQuery& query) {
    using enum StoredQuery::Kind;
    if (query.kind == action) throw SqlError("it changes data and gives no records");
    if (query.kind == pass_through) throw SqlError("it is for a database server, and nobody is asked here");
    if (!query.parameters.empty())
        throw SqlError(
            "it asks for " + list_of(query.parameters) +
            ", and there is nobody to ask. Print a query that does not ask, and say in a condition "
            "which records are meant");
}

/// For the queries in parentheses of a query.
QueryRunner runner_on(Catalogue& catalogue, int depth) {
    return [remembered = std::make_shared<Remembered>(catalogue), depth](const std::string& text,
                                                                         const Surroundings* around) {
        return run_text(*remembered, text, depth, around);
    };
}

Relation run(Catalogue& catalogue, const StoredQuery& query, const std::string& name, int depth,
             const Surroundings* around) {
    if (depth > deepest) throw SqlError("it takes its records from itself");
    require_records(query);
    if (query.kind == StoredQuery::Kind::united) return unite(catalogue, query, name, depth, around);
    const Origins origins{[&](const std::string& source) { return records_of(catalogue, source, depth + 1); },
                          runner_on(catalogue, depth + 1), around};
    return select(origins, query, name);
}

/// Failures name the innermost query, which is the one to look at; one without a name is named by who runs it.
Relation run_named(Catalogue& catalogue, const StoredQuery& query, const std::string& name, int depth,
                   const Surroundings* around) {
    try {
        return run(catalogue, query, name, depth, around);
    } catch (const SqlError& failure) {
        if (name.empty() || std::string_view(failure.what()).starts_with("The query ")) throw;
        throw SqlError("The query \"" + name + "\" cannot be worked out: " + failure.what());
    }
}

std::optional<Relation> records_of(Catalogue& catalogue, const std::string& name, int depth) {
    if (auto records = catalogue.table(name)) return records;
    if (const auto query = catalogue.query(name)) return run_named(catalogue, *query, name, depth, nullptr);
    return std::nullopt;
}

}  // namespace

std::optional<Relation> records_of(Catalogue& catalogue, std::string_view name) {
    return records_of(catalogue, std::string(name), 0);
}

Relation run_query(Catalogue& catalogue, const StoredQuery& query, const std::string& name) {
    return run_named(catalogue, query, name, 0, nullptr);
}

QueryRunner queries_on(Catalogue& catalogue) {
    return runner_on(catalogue, 0);
}

bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

void keep_where(Relation& relation, std::string_view condition, const QueryRunner& run,
                const Surroundings* around) {
    if (is_blank(condition)) return;
    const ExpressionPtr bound =
        bind_names(parse_expression(condition), {.columns = relation.columns, .run = run, .around = around});
    std::erase_if(relation.rows,
                  [&](const Row& row) { return !truth_of(evaluate(*bound, row)).value_or(false); });
}

void apply_filter(Catalogue& catalogue, Relation& relation, const StoredQuery& filter,
                  const std::string& name) {
    try {
        require_records(filter);
        if (filter.kind != StoredQuery::Kind::select || !filter.groups.empty() || !filter.having.empty() ||
            !filter.top.empty())
            throw SqlError("it does more than to choose records by a condition");
        keep_where(relation, filter.where, queries_on(catalogue));
        order_by(relation, filter.orders);
    } catch (const SqlError& failure) {
        throw SqlError("The query \"" + name + "\" cannot be used as a filter: " + failure.what());
    }
}

}  // namespace foliant::hosts::access
