#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/access/sql/datum.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {

/// A query as a database keeps it, in pieces.
struct StoredQuery {
    enum class Kind { select, action, crosstab, pass_through, united };
    struct Source {
        std::string name;     ///< of a table or query; empty where it is a query itself
        std::string alias{};  ///< what expressions call it; empty for its name
        std::string text{};   ///< of that query
        const std::string& called() const noexcept { return alias.empty() ? name : alias; }
    };
    struct Output {
        /// In a crosstab what is shown is the value in a cell, and the others stand beside and above the cells.
        enum class Role { shown, beside, above };
        std::string expression;
        std::string name{};  ///< empty for that of the column
        Role role = Role::shown;
    };
    struct Join {
        enum class Kind { inner, left, right };
        Kind kind = Kind::inner;
        std::string left;
        std::string right;
        std::string condition;
    };
    struct Order {
        std::string expression;
        bool descending = false;
    };

    Kind kind = Kind::select;
    std::vector<Source> sources;  ///< of a union: the queries that it puts one behind the other
    std::vector<Output> outputs;
    std::vector<Join> joins;
    std::string where;  ///< empty for all records, as the others
    std::vector<std::string> groups;
    std::string having;
    std::vector<Order> orders;
    bool has_all_columns = false;  ///< those of all sources, before the outputs
    bool is_distinct = false;      ///< no record twice
    bool is_distinct_row = false;  ///< one record for each combination of the records that are shown
    std::string top;               ///< how many; empty for all
    bool top_is_percent = false;
    std::vector<std::string> parameters;  ///< what it asks its user for
};

/// Reads a query as it is written: `SELECT ... FROM ... WHERE ... GROUP BY ... HAVING ... ORDER BY ...`, `UNION` between
/// several. Raises SqlError that names what is not understood.
StoredQuery parse_query(std::string_view text);

/// Where tables and queries come from.
class Catalogue {
  public:
    virtual ~Catalogue() = default;
    /// The records of a table, its columns bearing its name; nothing when there is no such table.
    virtual std::optional<Relation> table(std::string_view name) = 0;
    /// Nothing when there is no such query.
    virtual std::optional<StoredQuery> query(std::string_view name) = 0;
};

/// The records of a table or a query; nothing when there is neither. Raises SqlError that names the query for one that
/// cannot be worked out here.
std::optional<Relation> records_of(Catalogue& catalogue, std::string_view name);

/// What a query gives; `name` is what it is called in messages and in what is made of it.
Relation run_query(Catalogue& catalogue, const StoredQuery& query, const std::string& name);

/// Works out the queries in parentheses that conditions hold, for as long as the catalogue is there.
QueryRunner queries_on(Catalogue& catalogue);

/// Keeps the records for which a condition is True. A blank one keeps all. Without `run` it may hold no query; `around` is
/// the record around the query that the condition is of. Raises SqlError.
void keep_where(Relation& relation, std::string_view condition, const QueryRunner& run = {},
                const Surroundings* around = nullptr);

/// Keeps and orders the records as a query would that is used as a filter: by its condition and its order. Raises SqlError
/// for a query that does more than that.
void apply_filter(Catalogue& catalogue, Relation& relation, const StoredQuery& filter,
                  const std::string& name);

}  // namespace foliant::hosts::access
