#include "hosts/access/database/jet_file.h"

#include <gtest/gtest.h>

#include "hosts/access/database/column_properties.h"
#include "hosts/access/sql/dates.h"

namespace foliant::hosts::access {
namespace {

std::filesystem::path database(const std::string& name) {
    return std::filesystem::path(ACCESS_DATABASES) / name;
}

std::string problem(const std::string& name, const std::string& password = "", const char* table = nullptr) {
    try {
        JetFile file(database(name), password);
        if (table != nullptr) file.table(table);
    } catch (const DatabaseError& failure) {
        return failure.what();
    }
    return "none";
}

class JetFileTest : public testing::TestWithParam<const char*> {
  protected:
    JetFile file{database(GetParam()), ""};
};

INSTANTIATE_TEST_SUITE_P(Formats, JetFileTest, testing::Values("shop.mdb", "shop.accdb"));

TEST_P(JetFileTest, ListsWhatUsersHaveMade) {
    const DatabaseObjects& objects = file.objects();
    EXPECT_EQ(objects.tables, (std::vector<std::string>{"Customers", "Empty", "Orders", "Wide"}));
    EXPECT_EQ(objects.queries,
              (std::vector<std::string>{"All orders", "Asks", "Berliners", "Removes", "Totals"}));
    EXPECT_EQ(objects.reports, (std::vector<std::string>{"Active customers", "Styled"}));
    EXPECT_EQ(objects.linked_tables, std::vector<std::string>{"Elsewhere"});
}

TEST_P(JetFileTest, ReadsEveryTypeOfField) {
    const Relation customers = file.table("customers").value();
    ASSERT_EQ(customers.columns.size(), 9U);
    EXPECT_EQ(customers.columns[1].caption, "Company");
    EXPECT_EQ(customers.columns[8].format, "Percent");
    EXPECT_EQ(customers.columns[0].tables, std::vector<std::string>{"Customers"});
    ASSERT_EQ(customers.rows.size(), 4U);
    const Row first{std::int64_t{1},
                    std::string("Alfreds Futterkiste"),
                    std::string("Berlin"),
                    make_date(1996, 7, 4),
                    Money{12345000},
                    true,
                    std::string("first line\r\nsecond line"),
                    Opaque{5000},
                    0.25};
    EXPECT_EQ(customers.rows[0], first);
    const Row third{std::int64_t{3},
                    std::string("Königlich Essen"),
                    std::string("Brandenburg"),
                    Null(),
                    Null(),
                    true,
                    Null(),
                    Null(),
                    Null()};
    EXPECT_EQ(customers.rows[2], third);
    EXPECT_EQ(customers.rows[3][6], Datum(std::string())) << "an empty text is not Null";
}

TEST(JetFields, AnEmptyTextIsNotNull) {
    const Relation results = JetFile(database("fields.accdb"), "").table("Results").value();
    EXPECT_EQ(results.rows[0][1], Datum(std::string()));
    EXPECT_EQ(results.rows[1][1], Datum(Null()));
}

TEST(JetFields, CalculatedOnesAreWhatComesOut) {
    const Relation results = JetFile(database("fields.accdb"), "").table("Results").value();
    const Row first(results.rows[0].begin() + 2, results.rows[0].end());
    EXPECT_EQ(first, (Row{std::int64_t{12}, Money{833333333}, true, std::string("Wayne, Bruce"),
                          Decimal{"-18446744073709553.961"}, std::string("Wayne")}));
    const Row second(results.rows[1].begin() + 2, results.rows[1].end());
    EXPECT_EQ(second, (Row{Null(), Null(), false, std::string(), Null(), Null()}));
    EXPECT_EQ(results.columns[3].kind, Kind::money);
    EXPECT_EQ(results.columns[4].kind, Kind::boolean);
    EXPECT_EQ(
        problem("fields.accdb", "", "Damaged results"),
        "a record of the table \"Damaged results\" is damaged. Repair it in Access (Compact and Repair Database)");
}

TEST_P(JetFileTest, ReadsLongTextsWhole) {
    const Relation customers = file.table("Customers").value();
    const auto& note = std::get<std::string>(customers.rows[1][6]);
    EXPECT_EQ(note.size(), 16889U);
    EXPECT_TRUE(note.ends_with(" word1999"));
}

TEST_P(JetFileTest, ReadsTablesOfManyPages) {
    const Relation orders = file.table("Orders").value();
    ASSERT_EQ(orders.rows.size(), 300U);
    EXPECT_EQ(orders.rows[299][0], Datum(std::int64_t{399}));
    EXPECT_EQ(file.table("Empty").value().rows.size(), 0U);
}

TEST_P(JetFileTest, ReadsQueriesInTheOrderOfTheirPieces) {
    const StoredQuery totals = file.query("totals").value();
    EXPECT_EQ(totals.sources.at(1).name, "Orders");
    EXPECT_EQ(totals.outputs.at(1).expression, "Sum([Pieces]*[Price])");
    EXPECT_EQ(totals.outputs.at(1).name, "Total");
    EXPECT_EQ(totals.joins.at(0).kind, StoredQuery::Join::Kind::left);
    EXPECT_EQ(totals.groups, std::vector<std::string>{"Customers.Name"});
    const StoredQuery berliners = file.query("Berliners").value();
    EXPECT_EQ(berliners.where, "Customers.City Like \"B*\"");
    EXPECT_TRUE(berliners.orders.at(0).descending);
    EXPECT_TRUE(file.query("All orders").value().has_all_columns);
    EXPECT_EQ(file.query("Removes").value().kind, StoredQuery::Kind::action);
    EXPECT_EQ(file.query_of_report("Active customers").value().where, "Customers.Active = True");
    EXPECT_FALSE(file.query_of_report("Styled"));
    EXPECT_FALSE(file.query("Customers"));
    EXPECT_FALSE(file.table("Berliners"));
    EXPECT_FALSE(file.table("MSysObjects")) << "which is nobody's";
}

TEST(ColumnPropertiesTest, OnesThatAreDamagedEndSomewhere) {
    using namespace std::string_literals;
    const auto same = [](std::string_view bytes) { return std::string(bytes); };
    const std::string names = "MR2\0\x0f\0\0\0\x80\0\x07\0Caption"s;
    const std::string column = "\x1e\0\0\0\x01\0\0\0\0\0\x04\0City"s;
    const std::string caption = "\x0c\0\0\x0a\0\0\x04\0Town"s;
    EXPECT_EQ(read_column_properties(names + column + caption, same),
              (ColumnProperties{{"City", {{"Caption", "Town"}}}}));
    // Pieces that claim to have no length, or more than there is.
    EXPECT_EQ(read_column_properties(names + column + "\0\0\0\x0a\0\0\x04\0Town"s, same),
              (ColumnProperties{{"City", {}}}));
    EXPECT_EQ(read_column_properties("MR2\0\0\0\0\0\x80\0"s, same), ColumnProperties());
    EXPECT_EQ(read_column_properties("MR2\0\xff\xff\xff\x7f\x01\0\0\0\0\0\xff\x7f"s + "City", same),
              (ColumnProperties{{"City", {}}}));
    EXPECT_EQ(read_column_properties("MR", same), ColumnProperties());
}

TEST(ColumnPropertiesTest, FormatsAreTakenOutOfTexts) {
    EXPECT_EQ(
        without_formats("<div>a&amp;b</div>\r\n<div><font color=\"#ff0000\">c</font>&nbsp;&#233;</div>"),
        "a&b\nc\u00A0é");
    EXPECT_EQ(without_formats("one<br />two<p>three</p>"), "one\ntwothree");
    EXPECT_EQ(without_formats("1 < 2 & &unknown; &#0;"), "1 < 2 & &unknown; &#0;");
}

TEST(JetFilePassword, IsAskedForWhereThereIsOne) {
    EXPECT_EQ(problem("locked.mdb"), "it needs a password");
    EXPECT_EQ(problem("locked.mdb", "Open sesame"), "the password is wrong");
    EXPECT_EQ(problem("locked.mdb", "open sesame"), "none");
    EXPECT_EQ(problem("shop.mdb", "needless"), "none");
    EXPECT_EQ(problem("encrypted.accdb", "open sesame"),
              "it is encrypted. Remove its password in Access (File, Info, Decrypt Database)");
}

TEST(JetFileDamage, IsSaid) {
    EXPECT_EQ(problem("empty.mdb"), "it is empty");
    EXPECT_EQ(problem("renamed.mdb"),
              "it is no Access database (.mdb from Access 97, .accdb), or is damaged");
    EXPECT_EQ(problem("short.mdb"),
              "it has been cut short. Repair it in Access (Compact and Repair Database)");
    EXPECT_EQ(problem("damaged.mdb", "", "Customers"),
              "a record of the table \"Customers\" is damaged. Repair it in Access "
              "(Compact and Repair Database)");
    EXPECT_EQ(problem("lost.mdb", "", "Customers"),
              "of the 9 records of the table \"Customers\" only 4 can be read. Repair "
              "it in Access (Compact and Repair Database)");
}

}  // namespace
}  // namespace foliant::hosts::access
