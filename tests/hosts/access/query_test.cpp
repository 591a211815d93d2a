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
    query.kind = StoredQuery::Kind::united;
    EXPECT_EQ(problem(query),
              "The query \"the query\" cannot be worked out: it is a union, which is not worked out here");
    query = of_orders({{"Article", ""}});
    query.sources = {{"Nowhere", ""}};
    EXPECT_EQ(problem(query),
              "The query \"the query\" cannot be worked out: there is no table or query \"Nowhere\" (one "
              "that is linked to another file counts as none)");
    query.sources = {{"", "%$##@_Alias"}};
    EXPECT_EQ(problem(query),
              "The query \"the query\" cannot be worked out: it has a query in brackets, which is not "
              "worked out here");
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

TEST_F(QueryTest, AFilterChoosesAndOrdersAndDoesNothingElse) {
    Relation records = *records_of(shop, "Orders");
    StoredQuery filter = of_orders({{"Article", ""}});
    filter.where = "Orders.Pieces < 5";
    filter.orders = {{"Orders.Pieces", true}};
    apply_filter(records, filter, "Few");
    ASSERT_EQ(records.rows.size(), 3U);
    EXPECT_EQ(records.rows[0][2], Datum(n(4)));
    EXPECT_EQ(records.columns.size(), 3U) << "its columns are not taken away";
    filter.groups = {"Article"};
    try {
        apply_filter(records, filter, "Few");
        FAIL();
    } catch (const SqlError& failure) {
        EXPECT_STREQ(
            failure.what(),
            "The query \"Few\" cannot be used as a filter: it does more than to choose records by a condition");
    }
}

}  // namespace
}  // namespace foliant::hosts::access
