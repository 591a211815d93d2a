// What stored queries give, on tables in memory.

#include "hosts/access/sql/query.h"

#include <gtest/gtest.h>
#include <map>

namespace foliant::hosts::access {
namespace {

using Join = StoredQuery::Join;

Relation table(const std::string& name, const std::vector<std::string>& columns, std::vector<Row> rows) {
    Relation relation;
    for (const std::string& column : columns)
        relation.columns.push_back({.name = column, .kind = Kind::text, .tables = {name}});
    relation.rows = std::move(rows);
    return relation;
}

std::int64_t n(std::int64_t number) {
    return number;
}

class Shop : public Catalogue {
  public:
    std::optional<Relation> table(std::string_view name) override {
        ++reads;
        const auto found = tables.find(std::string(name));
        return found == tables.end() ? std::nullopt : std::optional(found->second);
    }
    std::optional<StoredQuery> query(std::string_view name) override {
        const auto found = queries.find(std::string(name));
        return found == queries.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<std::string, Relation> tables{
        {"Customers",
         access::table("Customers", {"No", "Name"},
                       {{n(1), std::string("Ann")}, {n(2), std::string("Bob")}, {n(3), std::string("Cy")}})},
        {"Orders", access::table("Orders", {"Customer", "Article", "Pieces"},
                                 {{n(1), std::string("nut"), n(5)},
                                  {n(2), std::string("nut"), n(1)},
                                  {n(1), std::string("bolt"), n(2)},
                                  {n(9), std::string("bolt"), n(4)},
                                  {Null(), std::string("cog"), Null()}})},
        {"Articles", access::table("Articles", {"Article", "Price"}, {{std::string("NUT"), Money{10000}}})}};
    std::map<std::string, StoredQuery> queries;
    int reads = 0;  ///< of tables
};

class QueryTest : public testing::Test {
  protected:
    /// The records as lines: "Ann 5; Bob 1".
    std::string run(const StoredQuery& query) {
        const Relation result = run_query(shop, query, "the query");
        std::string text;
        for (const Row& row : result.rows) {
            if (!text.empty()) text += "; ";
            for (std::size_t i = 0; i < row.size(); ++i)
                text += (i == 0 ? "" : " ") + (is_null(row[i]) ? "-" : text_of(row[i]).value());
        }
        return text;
    }

    std::string problem(const StoredQuery& query) {
        try {
            run(query);
        } catch (const SqlError& failure) {
            return failure.what();
        }
        return "none";
    }

    static StoredQuery of_orders(std::vector<StoredQuery::Output> outputs) {
        StoredQuery query;
        query.sources = {{"Orders", ""}};
        query.outputs = std::move(outputs);
        return query;
    }

    static StoredQuery joined(Join::Kind kind) {
        StoredQuery query;
        query.sources = {{"Customers", ""}, {"Orders", ""}};
        query.outputs = {{"Name", ""}, {"Pieces", ""}};
        query.joins = {{kind, "Customers", "Orders", "Customers.No = Orders.Customer"}};
        return query;
    }

    Shop shop;
};

TEST_F(QueryTest, ColumnsAndExpressionsOfTheRecordsThatFit) {
    StoredQuery query = of_orders({{"Article", ""}, {"[Pieces]*2", "Twice"}, {"Twice+1", ""}});
    query.where = "Pieces > 1";
    EXPECT_EQ(run(query), "nut 10 11; bolt 4 5; bolt 8 9");
    const Relation result = run_query(shop, query, "the query");
    EXPECT_EQ(result.columns[0].name, "Article");
    EXPECT_EQ(result.columns[1].name, "Twice");
    EXPECT_EQ(result.columns[2].name, "Expr1002");
}

TEST_F(QueryTest, OrdersByColumnsThatAreNotShownAndByOnesThatAre) {
    StoredQuery query = of_orders({{"Article", ""}, {"Pieces+0", "Many"}});
    query.orders = {{"Article", true}, {"Many", false}};
    EXPECT_EQ(run(query), "nut 1; nut 5; cog -; bolt 2; bolt 4");
    query.orders = {{"Customer", false}};
    EXPECT_EQ(run(query), "cog -; nut 5; bolt 2; nut 1; bolt 4");
}

TEST_F(QueryTest, AllColumnsOfAllTablesOrOfOne) {
    StoredQuery query = joined(Join::Kind::inner);
    query.outputs = {{"Customers.*", ""}, {"Article", ""}};
    EXPECT_EQ(run(query), "1 Ann nut; 1 Ann bolt; 2 Bob nut");
    query.outputs.clear();
    query.has_all_columns = true;
    query.is_distinct_row = true;
    EXPECT_EQ(run(query), "1 Ann 1 nut 5; 1 Ann 1 bolt 2; 2 Bob 2 nut 1");
}

TEST_F(QueryTest, JoinsTakeTheRecordsThatFitAndOuterOnesTheOthersToo) {
    EXPECT_EQ(run(joined(Join::Kind::inner)), "Ann 5; Ann 2; Bob 1");
    EXPECT_EQ(run(joined(Join::Kind::left)), "Ann 5; Ann 2; Bob 1; Cy -");
    EXPECT_EQ(run(joined(Join::Kind::right)), "Ann 5; Bob 1; Ann 2; - 4; - -");
    StoredQuery more = joined(Join::Kind::inner);
    more.joins[0].condition = "Customers.No = Orders.Customer And Orders.Pieces > 1";
    EXPECT_EQ(run(more), "Ann 5; Ann 2");
    more.joins[0].condition = "Customers.No > Orders.Customer";
    EXPECT_EQ(run(more), "Bob 5; Bob 2; Cy 5; Cy 1; Cy 2");
}

TEST_F(QueryTest, ThreeTablesJoinInAnyOrderAndTextsInAnyCase) {
    StoredQuery query = joined(Join::Kind::inner);
    query.sources.push_back({"Articles", "A"});
    query.joins.insert(query.joins.begin(), {Join::Kind::left, "Orders", "A", "Orders.Article = A.Article"});
    query.outputs = {{"Name", ""}, {"Orders.Article", ""}, {"Price*Pieces", ""}};
    EXPECT_EQ(run(query), "Ann nut 5; Ann bolt -; Bob nut 1");
}

TEST_F(QueryTest, TablesThatNothingJoinsAreCombinedEachWithEach) {
    StoredQuery query = joined(Join::Kind::inner);
    query.joins.clear();
    query.where = "[No] = Customer";
    EXPECT_EQ(run(query), "Ann 5; Ann 2; Bob 1");
}

TEST_F(QueryTest, GroupsAreSummedUp) {
    StoredQuery query = of_orders({{"Article", ""},
                                   {"Sum(Pieces)", "Total"},
                                   {"Count(*)", ""},
                                   {"Count(Pieces)", ""},
                                   {"Avg(Pieces)", ""},
                                   {"Min(Pieces)", ""},
                                   {"Max(Pieces)+1", ""}});
    query.groups = {"Article"};
    query.orders = {{"Total", true}};
    EXPECT_EQ(run(query), "bolt 6 2 2 3 2 5; nut 6 2 2 3 1 6; cog - 1 0 - - -");
    query.having = "Sum(Pieces) > 0 And Max(Pieces) < 5";
    EXPECT_EQ(run(query), "bolt 6 2 2 3 2 5");
    StoredQuery all = of_orders({{"Sum(Pieces)", ""}});
    EXPECT_EQ(run(all), "12");
    all.where = "False";
    EXPECT_EQ(run(all), "-") << "of no records there is a sum, which nobody knows";
}

TEST_F(QueryTest, DistinctOnesAndTheFirstOnes) {
    StoredQuery query = of_orders({{"Article", ""}});
    query.is_distinct = true;
    EXPECT_EQ(run(query), "nut; bolt; cog");
    query.is_distinct = false;
    query.orders = {{"Article", false}};
    query.top = "1";
    EXPECT_EQ(run(query), "bolt; bolt") << "equals of the last count as one with it";
    query.top = "50";
    query.top_is_percent = true;
    EXPECT_EQ(run(query), "bolt; bolt; cog");
}

TEST_F(QueryTest, DistinctRowsAreThoseOfTheTablesThatAreShown) {
    StoredQuery query = joined(Join::Kind::inner);
    query.outputs = {{"Name", ""}};
    EXPECT_EQ(run(query), "Ann; Ann; Bob");
    query.is_distinct_row = true;
    EXPECT_EQ(run(query), "Ann; Bob");
}

TEST_F(QueryTest, TakesItsRecordsFromOtherQueries) {
    shop.queries["Big"] = of_orders({{"Article", ""}, {"Pieces", ""}});
    shop.queries["Big"].where = "Pieces >= 4";
    StoredQuery query;
    query.sources = {{"Big", "B"}};
    query.outputs = {{"B.Article", ""}};
    EXPECT_EQ(run(query), "nut; bolt");
}

TEST_F(QueryTest, SaysWhichQueryCannotBeWorkedOutAndWhy) {
    StoredQuery query = of_orders({{"Article", ""}});
    query.kind = StoredQuery::Kind::action;
    EXPECT_EQ(problem(query),
              "The query \"the query\" cannot be worked out: it changes data and gives no records");
    query = of_orders({{"Article", ""}});
    query.sources = {{"Nowhere", ""}};
    EXPECT_EQ(problem(query),
              "The query \"the query\" cannot be worked out: there is no table or query \"Nowhere\" (one "
              "that is linked to another file counts as none)");
    query.sources = {{"Orders", ""}};
    query.parameters = {"From", "To"};
    EXPECT_EQ(
        problem(query),
        "The query \"the query\" cannot be worked out: it asks for [From], [To], and there is nobody to "
        "ask. Print a query that does not ask, and say in a condition which records are meant");
}

TEST_F(QueryTest, OneThatTakesItsRecordsFromItselfIsSaid) {
    shop.queries["Snake"] = of_orders({{"Article", ""}});
    shop.queries["Snake"].sources = {{"Snake", ""}};
    EXPECT_EQ(problem(shop.queries["Snake"]),
              "The query \"Snake\" cannot be worked out: it takes its records from itself");
}

TEST_F(QueryTest, OuterJoinsThatMeanTwoThingsAreRefused) {
    StoredQuery query = joined(Join::Kind::left);
    query.joins.push_back({Join::Kind::inner, "Orders", "Customers", "Orders.Pieces = Customers.No"});
    EXPECT_EQ(problem(query),
              "The query \"the query\" cannot be worked out: its outer joins can be made in more than one "
              "order");
}

StoredQuery union_of(std::vector<std::string> texts) {
    StoredQuery query;
    query.kind = StoredQuery::Kind::united;
    for (std::string& text : texts)
        query.sources.push_back({.name = "", .text = std::move(text)});
    return query;
}

TEST_F(QueryTest, UnionsPutRecordsOneBehindTheOther) {
    StoredQuery query =
        union_of({"SELECT Article, Pieces FROM Orders WHERE Pieces > 3",
                  "SELECT Name, [No] FROM Customers UNION ALL SELECT 'cog', 7 FROM Articles;"});
    EXPECT_EQ(run(query), "nut 5; bolt 4; Ann 1; Bob 2; Cy 3; cog 7");
    query.orders = {{"Article", true}};
    EXPECT_EQ(run(query), "nut 5; Cy 3; cog 7; bolt 4; Bob 2; Ann 1");
    query.sources.push_back(query.sources.front());
    query.is_distinct = true;
    EXPECT_EQ(run(query), "nut 5; Cy 3; cog 7; bolt 4; Bob 2; Ann 1");
    EXPECT_EQ(
        problem(union_of({"TABLE Customers", "SELECT Name FROM Customers"})),
        "The query \"the query\" cannot be worked out: the queries that it unites show 2 and 1 columns");
}

TEST_F(QueryTest, QueriesAreReadAsTheyAreWritten) {
    const auto written = [&](const std::string& text) { return run(parse_query(text)); };
    EXPECT_EQ(written("SELECT * FROM Customers ORDER BY Name DESC"), "3 Cy; 2 Bob; 1 Ann");
    EXPECT_EQ(written("select distinct top 2 Article from Orders order by Article asc;"), "bolt; cog");
    EXPECT_EQ(written("SELECT Left(Name, 1) AS First, Sum(o.Pieces) FROM Customers AS c LEFT JOIN Orders o "
                      "ON c.[No] = o.Customer GROUP BY Name HAVING Count(*) > 0 ORDER BY Name"),
              "A 7; B 1; C -");
    EXPECT_EQ(
        written("SELECT Name, Price FROM (Customers INNER JOIN Orders ON Customers.[No] = Orders.Customer) "
                "LEFT OUTER JOIN Articles ON Orders.Article = Articles.Article"),
        "Ann 1; Ann -; Bob 1");
    EXPECT_EQ(written("SELECT Name FROM Customers, Articles WHERE ([No]) In (1, 3)"), "Ann; Cy");
    EXPECT_EQ(written("SELECT Big.Article FROM (SELECT Article FROM Orders WHERE Pieces > 3) AS Big"),
              "nut; bolt");
    EXPECT_EQ(written("SELECT Big.Article FROM [SELECT Article FROM Orders WHERE Pieces > 3]. AS Big"),
              "nut; bolt");
    EXPECT_EQ(
        written("SELECT Article FROM Orders WHERE Pieces > 4 UNION SELECT Article FROM Orders UNION ALL "
                "SELECT Name FROM Customers ORDER BY Article"),
        "Ann; Bob; bolt; cog; Cy; nut");
}

TEST_F(QueryTest, UnionsMayBeLongAndTablesNotNestedForEver) {
    std::string text = "SELECT Name FROM Customers";
    for (int i = 0; i < 60; ++i)
        text += " UNION SELECT Name FROM Customers";
    EXPECT_EQ(run(parse_query(text)), "Ann; Bob; Cy");
    EXPECT_EQ(run(parse_query(text + " UNION ALL SELECT Name FROM Customers")), "Ann; Bob; Cy; Ann; Bob; Cy");
    EXPECT_THROW(parse_query("SELECT Name FROM " + std::string(50000, '(')), SqlError);
}

TEST_F(QueryTest, QueriesInConditionsGiveTheirValues) {
    StoredQuery query = of_orders({{"Article", ""}, {"Pieces", ""}});
    query.where = "Pieces > (SELECT Avg(Pieces) FROM Orders)";
    EXPECT_EQ(run(query), "nut 5; bolt 4");
    query.where = "Customer In (SELECT [No] FROM Customers WHERE Name Like 'A*')";
    EXPECT_EQ(run(query), "nut 5; bolt 2");
    query.where = "Customer Not In (SELECT [No] FROM Customers)";
    EXPECT_EQ(run(query), "bolt 4") << "what is Null is neither in it nor not";
    query.where = "Pieces = (SELECT Pieces FROM Orders WHERE False)";
    EXPECT_EQ(run(query), "");
    Relation records = *records_of(shop, "Customers");
    keep_where(records, "[No] In (SELECT Customer FROM Orders)", queries_on(shop));
    EXPECT_EQ(records.rows.size(), 2U);
}

TEST_F(QueryTest, QueriesInParenthesesLookAtTheRecordAroundThem) {
    const auto written = [&](const std::string& text) { return run(parse_query(text)); };
    EXPECT_EQ(written("SELECT Article, Pieces FROM Orders AS o WHERE Pieces = "
                      "(SELECT Max(Pieces) FROM Orders WHERE Article = o.Article)"),
              "nut 5; bolt 4");
    EXPECT_EQ(written("SELECT Name, (SELECT Sum(Pieces) FROM Orders WHERE Customer = [No]) AS Pieces "
                      "FROM Customers ORDER BY Name DESC"),
              "Cy -; Bob 1; Ann 7");
    EXPECT_EQ(written("SELECT Name FROM Customers WHERE 'nut' In (SELECT Article FROM Orders WHERE Customer "
                      "= Customers.[No] AND Pieces > Customers.[No])"),
              "Ann");
    EXPECT_EQ(written("SELECT Name FROM Customers WHERE (SELECT Count(*) FROM Orders WHERE Customer = [No]) "
                      "> 1 OR [No] Not In (SELECT Customer FROM Orders WHERE Customer = [No])"),
              "Ann; Cy");
}

TEST_F(QueryTest, ExistsSaysWhetherAQueryGivesRecords) {
    const auto written = [&](const std::string& text) { return run(parse_query(text)); };
    const std::string with_orders = "Exists (SELECT * FROM Orders WHERE Customer = Customers.[No])";
    EXPECT_EQ(written("SELECT Name FROM Customers WHERE " + with_orders), "Ann; Bob");
    EXPECT_EQ(written("SELECT Name FROM Customers WHERE Not " + with_orders), "Cy");
    EXPECT_EQ(written("SELECT Name FROM Customers WHERE Exists (SELECT Article FROM Orders WHERE False)"),
              "");
}

TEST_F(QueryTest, AQueryMayLookAtTheRecordAroundTheOneAroundIt) {
    StoredQuery query = parse_query(
        "SELECT Name FROM Customers WHERE Exists (SELECT * FROM Articles WHERE Exists (SELECT * FROM Orders "
        "WHERE Orders.Article = Articles.Article AND Customer = Customers.[No] AND Pieces > 1))");
    EXPECT_EQ(run(query), "Ann");
    Relation records = *records_of(shop, "Customers");
    keep_where(records, query.where, queries_on(shop));
    EXPECT_EQ(records.rows.size(), 1U);
}

TEST_F(QueryTest, WhatAQueryGivesIsWorkedOutOnceForRecordsThatItCannotTellApart) {
    Relation& orders = shop.tables["Orders"];
    const std::vector<Row> few = orders.rows;
    for (int i = 0; i < 1000; ++i)
        orders.rows.insert(orders.rows.end(), few.begin(), few.end());
    EXPECT_EQ(run(parse_query("SELECT DISTINCT Article FROM Orders AS o WHERE Pieces = (SELECT Max(Pieces) "
                              "FROM Orders WHERE Article = o.Article)")),
              "nut; bolt");
    EXPECT_LT(shop.reads, 5);
}

TEST_F(QueryTest, QueriesInConditionsThatGiveNoOneValueAreErrors) {
    const auto problem_with = [&](const std::string& condition) {
        StoredQuery query = of_orders({{"Article", ""}});
        query.where = condition;
        return problem(query);
    };
    const std::string begin = "The query \"the query\" cannot be worked out: ";
    EXPECT_EQ(problem_with("Pieces = (SELECT Pieces FROM Orders)"),
              begin +
                  "the query in parentheses <SELECT Pieces FROM Orders> gives 5 records where there is room "
                  "for one");
    EXPECT_EQ(
        problem_with("Pieces In (SELECT * FROM Customers)"),
        begin +
            "the query in parentheses <SELECT * FROM Customers> shows 2 columns where there is room for "
            "one");
    EXPECT_EQ(
        problem_with("Pieces = (SELECT Pieces FROM Orders WHERE Customer = o.Customer)"),
        begin +
            "its part <SELECT Pieces FROM Orders WHERE Customer = o.Customer> cannot be worked out: there "
            "is no column [o].[Customer], and nobody to ask for a parameter of that name. The columns are "
            "[Customer], [Article], [Pieces]");
    EXPECT_NE(problem_with("1 = (SELECT Max([No]) FROM Customers WHERE [No] = Orders.Customer AND Name > "
                           "Pieces)")
                  .find("the text \"Ann\" cannot be compared with the number 5"),
              std::string::npos);
    EXPECT_EQ(problem_with("Pieces = (SELECT o.Pieces FROM Orders AS o WHERE o.Article = Orders.Article)"),
              begin +
                  "the query in parentheses <SELECT o.Pieces FROM Orders AS o WHERE o.Article = "
                  "Orders.Article> gives 2 records where there is room for one");
    EXPECT_NE(problem_with("Pieces > All (SELECT Pieces FROM Orders)")
                  .find("\"All\" of a query is not understood here"),
              std::string::npos);
    EXPECT_NE(
        problem_with("Pieces In (SELECT Pieces FROM Orders WHERE (Pieces > 1)").find("a \")\" is missing"),
        std::string::npos);
    EXPECT_NE(problem_with("Pieces In (SELECT Pieces INTO New FROM Orders)")
                  .find("its part <SELECT Pieces INTO New"),
              std::string::npos);
}

TEST_F(QueryTest, CrosstabsHaveAColumnForEachValue) {
    using Role = StoredQuery::Output::Role;
    StoredQuery query = of_orders({{"Article", "", Role::beside},
                                   {"Count(*)", "All", Role::beside},
                                   {"Sum(Pieces)", "", Role::shown},
                                   {"Customer", "", Role::above}});
    query.kind = StoredQuery::Kind::crosstab;
    query.groups = {"Article"};
    EXPECT_EQ(run(query), "bolt 2 - 2 - 4; cog 1 - - - -; nut 2 - 5 1 -");
    const auto headings = [&] {
        std::string names;
        for (const Column& column : run_query(shop, query, "the query").columns)
            names += column.name + " ";
        return names;
    };
    EXPECT_EQ(headings(), "Article All <> 1 2 9 ");
    query.outputs.back().expression = "Customer In (9, 1)";
    query.orders = {{"Article", true}};
    EXPECT_EQ(run(query), "nut 2 - 5; cog 1 - -; bolt 2 4 2");
    EXPECT_EQ(headings(), "Article All 9 1 ");
}

TEST_F(QueryTest, AFilterChoosesAndOrdersAndDoesNothingElse) {
    Relation records = *records_of(shop, "Orders");
    StoredQuery filter = of_orders({{"Article", ""}});
    filter.where = "Orders.Pieces < 5";
    filter.orders = {{"Orders.Pieces", true}};
    apply_filter(shop, records, filter, "Few");
    ASSERT_EQ(records.rows.size(), 3U);
    EXPECT_EQ(records.rows[0][2], Datum(n(4)));
    EXPECT_EQ(records.columns.size(), 3U) << "its columns are not taken away";
    filter.groups = {"Article"};
    try {
        apply_filter(shop, records, filter, "Few");
        FAIL();
    } catch (const SqlError& failure) {
        EXPECT_STREQ(
            failure.what(),
            "The query \"Few\" cannot be used as a filter: it does more than to choose records by a condition");
    }
}

}  // namespace
}  // namespace foliant::hosts::access
