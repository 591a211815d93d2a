// What conditions and expressions of Access's dialect mean, on one record.

#include <gtest/gtest.h>

#include "hosts/access/sql/dates.h"
#include "hosts/access/sql/expression.h"
#include "hosts/access/sql/query.h"

namespace foliant::hosts::access {
namespace {

const std::vector<Column> columns{
    {.name = "Id", .kind = Kind::integer, .tables = {"Customers"}},
    {.name = "City", .kind = Kind::text, .tables = {"Customers"}},
    {.name = "Order Date", .kind = Kind::date, .tables = {"Customers"}},
    {.name = "Credit", .kind = Kind::money, .tables = {"Customers"}},
    {.name = "Active", .kind = Kind::boolean, .tables = {"Customers"}},
    {.name = "Region", .kind = Kind::text, .tables = {"Customers"}},
    {.name = "City", .kind = Kind::text, .tables = {"Suppliers"}},
    {.name = "Weight", .kind = Kind::decimal, .tables = {"Suppliers"}},
};

/// The value of an expression for a customer of Berlin; "what went wrong" as a text for one that has none.
Datum value(const std::string& expression) {
    const Row row{std::int64_t{7},
                  std::string("Berlin"),
                  make_date(1996, 7, 4, 10 * 3600),
                  Money{12345000},
                  true,
                  Null(),
                  std::string("Kiel"),
                  Decimal{"2.50"}};
    return evaluate(*bind_names(parse_expression(expression), {.columns = columns}), row);
}

std::string problem(const std::string& expression) {
    try {
        value(expression);
    } catch (const SqlError& failure) {
        return failure.what();
    }
    return "none";
}

struct Condition {
    const char* text;
    Datum expected;
};

void PrintTo(const Condition& condition, std::ostream* out) {
    *out << condition.text;
}

class ConditionTest : public testing::TestWithParam<Condition> {};

TEST_P(ConditionTest, IsTrueFalseOrUnknown) {
    EXPECT_EQ(value(GetParam().text), GetParam().expected) << GetParam().text;
}

const Datum unknown = Null();

Datum n(std::int64_t number) {
    return number;
}

INSTANTIATE_TEST_SUITE_P(
    Comparisons, ConditionTest,
    testing::Values(Condition{"Id = 7", true}, Condition{"Id <> 7", false}, Condition{"7<=Id", true},
                    Condition{"Id < 7.5", true}, Condition{"Id > -1", true}, Condition{"Id >= 8", false},
                    Condition{"[Customers].[City] = 'berlin'", true},
                    Condition{"Suppliers.City = \"KIEL\"", true},
                    Condition{"[Suppliers]![City] = 'Kiel'", true}, Condition{"Id < 6 + 2 * 1", true},
                    Condition{"customers.id = 7", true}, Condition{"Credit = 1234.5", true},
                    Condition{"Weight > 2.4", true}, Condition{"Active", true},
                    Condition{"Active = Yes", true}, Condition{"Active = -1", true},
                    Condition{"Active = False", false}, Condition{"Region = 'BC'", unknown},
                    Condition{"Region = Null", unknown}, Condition{"Customers.City = 'It''s'", false},
                    Condition{"Customers.City < 'C'", true}));

INSTANTIATE_TEST_SUITE_P(Dates, ConditionTest,
                         testing::Values(Condition{"[Order Date] >= #7/4/1996#", true},
                                         Condition{"[Order Date] < #1996-07-05#", true},
                                         Condition{"[Order Date] = #4-Jul-1996 10:00#", true},
                                         Condition{"[Order Date] = #July 4, 1996 10:00:00 AM#", true},
                                         Condition{"[Order Date] > #7/4/96 9:59:59 PM#", false},
                                         Condition{"[Order Date] < #31/12/1996#", true},
                                         Condition{"Year([Order Date]) = 1996", true},
                                         Condition{"[Order Date] Between #7/1/1996# And #7/31/1996#", true},
                                         Condition{"#2/29/2000# - #2/28/2000# = 1", true},
                                         Condition{"#12:00# = 0.5", true}));

INSTANTIATE_TEST_SUITE_P(
    Like, ConditionTest,
    testing::Values(
        Condition{"Customers.City Like 'B*'", true}, Condition{"Customers.City Like 'b*N'", true},
        Condition{"Customers.City Like 'B?rlin'", true}, Condition{"Customers.City Like 'B?lin'", false},
        Condition{"Customers.City Like '*r*i*'", true}, Condition{"Customers.City Like '*x*'", false},
        Condition{"Customers.City Like '[a-c]*'", true}, Condition{"Customers.City Like '[!a-c]*'", false},
        Condition{"Customers.City Like 'Berlin[*]'", false}, Condition{"Customers.City Not Like 'K*'", true},
        Condition{"Id Like '#'", true}, Condition{"'a*b' Like 'a[*]b'", true},
        Condition{"'Ärger' Like 'ä?ger'", true}, Condition{"'' Like '*'", true},
        Condition{"Region Like '*'", unknown}, Condition{"'x9' Like '[a-z]#'", true},
        Condition{"'-' Like '[-x]'", true}));

INSTANTIATE_TEST_SUITE_P(
    Ranges, ConditionTest,
    testing::Values(Condition{"Id Between 5 And 9", true}, Condition{"Id Between 9 And 5", true},
                    Condition{"Id Not Between 5 And 9", false},
                    Condition{"Region Between 'A' And 'Z'", unknown}, Condition{"Id In (1, 7, 9)", true},
                    Condition{"Id Not In (1, 2)", true},
                    Condition{"Customers.City In ('BERLIN', 'Kiel')", true},
                    Condition{"Id In (1, Null)", unknown}, Condition{"Region Is Null", true},
                    Condition{"Region Is Not Null", false}, Condition{"Id Is Null Or Id = 7", true}));

INSTANTIATE_TEST_SUITE_P(
    Logic, ConditionTest,
    testing::Values(Condition{"Id = 7 And Active", true}, Condition{"Id = 8 Or Active", true},
                    Condition{"Not Id = 8", true}, Condition{"NOT (Id = 7 AND Active)", false},
                    Condition{"Id = 8 And Region = 'x'", false},
                    Condition{"Id = 7 And Region = 'x'", unknown}, Condition{"Id = 7 Or Region = 'x'", true},
                    Condition{"Not Region = 'x'", unknown},
                    // And binds more than Or, Not more than And.
                    Condition{"Id = 7 Or Id = 8 And Id = 9", true}, Condition{"Not Id = 7 And Id = 9", false},
                    Condition{"Id = 7 Xor Active", false}, Condition{"((Id)=7)", true}));

INSTANTIATE_TEST_SUITE_P(
    Values, ConditionTest,
    testing::Values(
        Condition{"1 + 2 * 3", std::int64_t{7}}, Condition{"-2 ^ 2", -4.0},
        Condition{"7 \\ 2", std::int64_t{3}}, Condition{"7 Mod 4", std::int64_t{3}}, Condition{"7 / 2", 3.5},
        Condition{"Credit + 1", Money{12355000}}, Condition{"Credit * Id", Money{86415000}},
        Condition{"Region & 'x' & 1", std::string("x1")}, Condition{"Region + 1", unknown},
        Condition{"IIf(Id > 5, 'big', 'small')", std::string("big")},
        Condition{"Nz(Region, '-')", std::string("-")}, Condition{"Left('Łódź', 2)", std::string("Łó")},
        Condition{"Right('Łódź', 2)", std::string("dź")},
        Condition{"Mid('Berlin', 2, 3)", std::string("erl")}, Condition{"Len('Łódź')", std::int64_t{4}},
        Condition{"UCase('größe')", std::string("GRÖßE")}, Condition{"InStr('Berlin', 'R')", std::int64_t{3}},
        Condition{"Round(2.5)", 2.0}, Condition{"CCur(1.23456)", Money{12346}},
        Condition{"Trim(' a ')", std::string("a")}, Condition{"CLng(2.5)", std::int64_t{2}},
        Condition{"Abs(-3)", std::int64_t{3}}));

INSTANTIATE_TEST_SUITE_P(
    DatesInParts, ConditionTest,
    testing::Values(
        Condition{"DatePart('yyyy', [Order Date])", n(1996)},
        Condition{"'Qtr ' & DatePart(\"q\", [Order Date], 1, 0)", std::string("Qtr 3")},
        Condition{"DatePart('y', #12/31/1996#)", n(366)}, Condition{"DatePart('w', [Order Date])", n(5)},
        Condition{"DatePart('w', [Order Date], 2)", n(4)}, Condition{"DatePart('ww', #1/6/1996#)", n(1)},
        Condition{"DatePart('ww', #1/7/1996#)", n(2)}, Condition{"DatePart('h', [Order Date])", n(10)},
        Condition{"DatePart('m', Region)", unknown},
        Condition{"DateAdd('m', 1, #1/31/1996#) = #2/29/1996#", true},
        Condition{"DateAdd('yyyy', -1, #2/29/1996#) = #2/28/1995#", true},
        Condition{"DateAdd('ww', 2, #1/1/1996#) = #1/15/1996#", true},
        Condition{"DateAdd('h', 20, [Order Date]) = #7/5/1996 6:00#", true},
        Condition{"DateDiff('yyyy', #12/31/1995#, #1/1/1996#)", n(1)},
        Condition{"DateDiff('q', #1/1/1996#, #3/31/1996#)", n(0)},
        Condition{"DateDiff('m', #3/1/1996#, #1/31/1996#)", n(-2)},
        Condition{"DateDiff('d', #1/1/1996#, #1/1/1997#)", n(366)},
        Condition{"DateDiff('ww', #1/6/1996#, #1/7/1996#)", n(1)},
        Condition{"DateDiff('n', #9:59#, #10:01#)", n(2)},
        Condition{"Switch(Id = 6, 'six', Id = 7, 'seven', True, 'more')", std::string("seven")},
        Condition{"Switch(Id = 6, 'six')", unknown}));

TEST(ConditionProblems, NameThePieceThatIsNotUnderstood) {
    EXPECT_EQ(problem("DatePart('x', [Order Date])"),
              "\"x\" is no interval of dates (yyyy, q, m, ww, d, h, n, s are some)");
    EXPECT_EQ(
        problem("Town = 'Berlin'"),
        "there is no column [Town], and nobody to ask for a parameter of that name. The columns are [Id], [City], "
        "[Order Date], [Credit], [Active], [Region], [City], [Weight]");
    EXPECT_EQ(problem("City = 'Berlin'"),
              "more than one table has a column [City]. Write the table before it: [Table].[Column]");
    EXPECT_EQ(problem("Id = 7 garbage"), "this is not understood, at <garbage> in <Id = 7 garbage>");
    EXPECT_EQ(problem("Id = "), "a value is missing, at the end of <Id = >");
    EXPECT_EQ(problem("Id = 'x"), "a text has no closing quote, at <'x> in <Id = 'x>");
    EXPECT_EQ(problem("[Id = 1"), "a [ has no ], at <[Id = 1> in <[Id = 1>");
    EXPECT_EQ(problem("(Id = 1"), "a \")\" is missing, at the end of <(Id = 1>");
    EXPECT_EQ(problem("Id ~ 1"), "a sign is not understood, at <~ 1> in <Id ~ 1>");
    EXPECT_EQ(problem("Soundex(Id) = 1"), "the function \"soundex\" is not known here");
    EXPECT_EQ(problem("Left('x') = 1"), "\"left\" is not called with 1 arguments");
    EXPECT_EQ(problem("Sum(Id) > 1"), "\"sum\" of many records has no place in a condition");
    EXPECT_EQ(problem("Id In (Select 1)"), "the query in parentheses <Select 1> has no place here");
    EXPECT_EQ(
        problem("Id = #13/13/1996#"),
        "this is no date (write month/day/year or year-month-day), at <#13/13/1996#> in <Id = #13/13/1996#>");
    EXPECT_EQ(problem("Id Not 7"), "after \"Not\" Like, Between or In is missing, at <7> in <Id Not 7>");
    EXPECT_EQ(
        problem("Forms!Orders!Id = 1"),
        "it asks for a field of \"Orders\", which only Access can show, at <!Id = 1> in <Forms!Orders!Id = 1>");
}

TEST(ConditionProblems, WhatCannotBeComparedOrWorkedOutIsNoSilentFalse) {
    EXPECT_EQ(problem("Id = '7'"),
              "the number 7 cannot be compared with the text \"7\": texts stand in '' or \"\", dates "
              "between # and #, numbers alone");
    EXPECT_EQ(problem("'x' And Active"), "the text \"x\" is no condition");
    EXPECT_EQ(problem("1 / 0 = 1"), "a division by zero");
    EXPECT_EQ(problem("Customers.City Like '[a'"), "the pattern \"[a\" has a [ without a ]");
}

TEST(ConditionProblems, AColumnThatIsCalledLikeAConstantIsToBeTold) {
    const std::vector<Column> numbered{{.name = "No"}};
    const auto number = [&](const std::string& expression) {
        return evaluate(*bind_names(parse_expression(expression), {.columns = numbered}), {std::int64_t{7}});
    };
    EXPECT_EQ(number("[No] = 7"), Datum(true));
    try {
        number("No = 7");
        FAIL();
    } catch (const SqlError& failure) {
        EXPECT_STREQ(failure.what(),
                     "\"no\" is a column and a constant. Write [no] for the column, and True or False for "
                     "the constant");
    }
}

TEST(ConditionProblems, NestingHasAnEnd) {
    EXPECT_NE(problem(std::string(100000, '(')).find("nested too deeply"), std::string::npos);
    EXPECT_NE(problem(std::string(100000, '-') + "1").find("nested too deeply"), std::string::npos);
}

TEST(Pattern, OfManyStarsIsQuick) {
    EXPECT_FALSE(is_like(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(Calendar, CountsDaysAsAccessDoes) {
    EXPECT_EQ(make_date(1899, 12, 30).days, 0);
    EXPECT_EQ(make_date(2000, 2, 29).days, 36585);
    EXPECT_EQ(make_date(2000, 14, 1).days, make_date(2001, 2, 1).days);
    EXPECT_EQ(make_date(100, 1, 1).days, -657434);
    const CalendarDate before = calendar_date({-1.75});
    EXPECT_EQ(before.day, 29);
    EXPECT_EQ(before.hour, 18);
    EXPECT_EQ(calendar_date(make_date(2026, 11, 22)).weekday, 0);
}

}  // namespace
}  // namespace foliant::hosts::access
