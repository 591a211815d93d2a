#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "automation/text.h"
#include "hosts/access/sql/query.h"
#include "hosts/access/sql/tokens.h"

namespace foliant::hosts::access {
namespace {

using Join = StoredQuery::Join;
using Names = std::vector<std::string>;

/// The words that end an expression of a query, where no parenthesis holds them.
constexpr std::array<std::string_view, 15> clauses{"from",  "where", "group", "having", "order",
                                                   "union", "inner", "join",  "on",     "as",
                                                   ",",     ")",     ";",     "asc",    "desc"};

bool is_among(const Names& names, const std::string& name) {
    return std::ranges::any_of(
        names, [&](const std::string& other) { return automation::equal_ignoring_case(other, name); });
}

/// What stands before the names of columns in an expression.
void add_tables(const Expression& expression, Names& tables) {
    if (expression.kind == Expression::Kind::column && !expression.table.empty() &&
        !is_among(tables, expression.table))
        tables.push_back(expression.table);
    for (const ExpressionPtr& part : expression.parts)
        add_tables(*part, tables);
}

class QueryParser {
  public:
    explicit QueryParser(std::string_view text) : tokens_(text) {}

    StoredQuery whole() {
        StoredQuery query = selection();
        while (tokens_.is("union"))
            unite_with_next(query);
        query.orders = orders();
        tokens_.take_if(";");
        if (tokens_.now().kind != Token::Kind::end) tokens_.fail("this is not understood");
        return query;
    }

  private:
    /// All that was read is the first part of a union, unless it is one of that kind already.
    void unite_with_next(StoredQuery& query) {
        using enum StoredQuery::Kind;
        const std::string before = tokens_.text_from(0);
        tokens_.take();
        const bool is_distinct = !tokens_.take_if("all");
        if (query.kind != united || query.is_distinct != is_distinct) {
            query = {};
            query.kind = united;
            query.is_distinct = is_distinct;
            query.sources = {{.name = "", .text = before}};
        }
        const std::size_t place = tokens_.place();
        selection();
        query.sources.push_back({.name = "", .text = tokens_.text_from(place)});
    }

    StoredQuery selection() {
        StoredQuery query;
        if (tokens_.take_if("table")) {
            query.has_all_columns = true;
            query.sources.push_back({.name = name("a table")});
            return query;
        }
        tokens_.expect("select", "where a query begins");
        read_options(query);
        do
            query.outputs.push_back(output());
        while (tokens_.take_if(","));
        if (tokens_.take_if("from")) {
            do
                read_tables(query);
            while (tokens_.take_if(","));
        }
        if (tokens_.take_if("where")) query.where = expression();
        if (tokens_.take_if("group")) {
            tokens_.expect("by", "after \"Group\"");
            do
                query.groups.push_back(expression());
            while (tokens_.take_if(","));
        }
        if (tokens_.take_if("having")) query.having = expression();
        return query;
    }

    void read_options(StoredQuery& query) {
        for (bool is_option = true; is_option;) {
            is_option = true;
            if (tokens_.take_if("distinct"))
                query.is_distinct = true;
            else if (tokens_.take_if("distinctrow"))
                query.is_distinct_row = true;
            else if (tokens_.take_if("top"))
                read_top(query);
            else
                is_option = tokens_.take_if("all");
        }
    }

    void read_top(StoredQuery& query) {
        if (tokens_.now().kind != Token::Kind::number) tokens_.fail("after \"Top\" a number is missing");
        query.top = tokens_.take().text;
        query.top_is_percent = tokens_.take_if("percent");
    }

    StoredQuery::Output output() {
        StoredQuery::Output result{.expression = expression()};
        if (tokens_.take_if("as")) result.name = name("the name of a column");
        return result;
    }

    std::vector<StoredQuery::Order> orders() {
        std::vector<StoredQuery::Order> result;
        if (!tokens_.take_if("order")) return result;
        tokens_.expect("by", "after \"Order\"");
        do {
            StoredQuery::Order key{.expression = expression()};
            key.descending = tokens_.take_if("desc");
            if (!key.descending) tokens_.take_if("asc");
            result.push_back(std::move(key));
        } while (tokens_.take_if(","));
        return result;
    }

    /// The text up to the next word of the query's own.
    std::string expression() {
        const std::size_t place = tokens_.place();
        while (!ends_expression()) {
            if (tokens_.take_if("("))
                tokens_.take_to_closing();
            else
                tokens_.take();
        }
        std::string text = tokens_.text_from(place);
        if (text.empty()) tokens_.fail("an expression is missing");
        return text;
    }

    bool ends_expression() const {
        if (tokens_.now().kind == Token::Kind::end) return true;
        return std::ranges::any_of(clauses, [&](std::string_view word) { return tokens_.is(word); }) ||
               is_outer_join();
    }

    /// Left and Right are functions, too.
    bool is_outer_join() const {
        if (!tokens_.is("left") && !tokens_.is("right")) return false;
        Tokens ahead = tokens_;
        ahead.take();
        return ahead.is("join") || ahead.is("outer");
    }

    std::string name(const std::string& what) {
        const Token::Kind kind = tokens_.now().kind;
        if (kind != Token::Kind::name && kind != Token::Kind::quoted_name) tokens_.fail(what + " is missing");
        return tokens_.take().text;
    }

    /// Tables and what joins them; returns what they are called.
    Names read_tables(StoredQuery& query) {
        Names tables = read_table(query);
        while (const auto kind = join_kind()) {
            const Names others = read_table(query);
            tokens_.expect("on", "behind the tables of a join");
            add_join(query, *kind, tables, others);
            tables.insert(tables.end(), others.begin(), others.end());
        }
        return tables;
    }

    Names read_table(StoredQuery& query) {
        StoredQuery::Source source{.name = ""};
        if (tokens_.take_if("(")) {
            if (!tokens_.is("select")) {
                constexpr int deepest = 100;  // as it costs the stack
                if (++depth_ > deepest) tokens_.fail("the tables are nested too deeply");
                Names inner = read_tables(query);
                tokens_.expect(")", "");
                --depth_;
                return inner;
            }
            source.text = tokens_.take_to_closing();
        } else if (is_query_in_brackets()) {
            source.text = tokens_.take().text;
            tokens_.take_if(".");
        } else {
            source.name = name("a table");
        }
        if (tokens_.take_if("as") || !ends_expression()) source.alias = name("the other name of a table");
        query.sources.push_back(source);
        return {source.called()};
    }

    /// [SELECT ...]. is how Access once wrote them.
    bool is_query_in_brackets() const {
        return tokens_.now().kind == Token::Kind::quoted_name &&
               automation::to_lower(tokens_.now().text).starts_with("select ");
    }

    std::optional<Join::Kind> join_kind() {
        const auto taken = [&](Join::Kind kind) {
            tokens_.take_if("outer");
            tokens_.expect("join", "between two tables");
            return kind;
        };
        if (tokens_.take_if("left")) return taken(Join::Kind::left);
        if (tokens_.take_if("right")) return taken(Join::Kind::right);
        if (tokens_.take_if("inner") || tokens_.is("join")) return taken(Join::Kind::inner);
        return std::nullopt;
    }

    void add_join(StoredQuery& query, Join::Kind kind, const Names& left, const Names& right) {
        const std::size_t place = tokens_.place();
        const std::string condition = expression();
        Names named;
        add_tables(*parse_expression(condition), named);
        const auto meant = [&](const Names& side) {
            if (side.size() == 1) return side.front();
            Names found;
            std::ranges::copy_if(side, std::back_inserter(found),
                                 [&](const std::string& table) { return is_among(named, table); });
            if (found.size() != 1)
                throw SqlError("the join on <" + tokens_.text_from(place) +
                               "> does not say which two tables it joins");
            return found.front();
        };
        query.joins.push_back({kind, meant(left), meant(right), condition});
    }

    Tokens tokens_;
    int depth_ = 0;  ///< of tables in parentheses
};

}  // namespace

StoredQuery parse_query(std::string_view text) {
    return QueryParser(text).whole();
}

}  // namespace foliant::hosts::access
