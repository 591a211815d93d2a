// How values are written, and how tables lie on pages.

#include <gtest/gtest.h>

#include "hosts/access/report/locale_forms.h"
#include "hosts/access/report/table_plan.h"
#include "hosts/access/sql/dates.h"

namespace foliant::hosts::access {
namespace {

const LocaleForms german{.date = "%d.%m.%Y",
                         .time = "%H:%M:%S",
                         .decimal_point = ",",
                         .thousands = ".",
                         .currency = "€",
                         .currency_precedes = false,
                         .currency_has_space = true,
                         .yes = "Ja",
                         .no = "Nein"};
const LocaleForms american{.date = "%m/%d/%Y", .time = "%I:%M:%S %p", .thousands = ",", .currency = "$"};

std::string in_german(const Datum& datum, const Column& column = {}) {
    return shown(datum, column, german);
}

TEST(LocaleForms, WriteDatesAndTimesOfWhichOneMayBeMissing) {
    EXPECT_EQ(in_german(make_date(1996, 7, 4)), "04.07.1996");
    EXPECT_EQ(in_german(make_date(1996, 7, 4, 3661)), "04.07.1996 01:01:01");
    EXPECT_EQ(in_german(Date{0.75}), "18:00:00");
    EXPECT_EQ(shown(make_date(1996, 7, 4, 46800), {}, american), "07/04/1996 01:00:00 PM");
    EXPECT_EQ(in_german(make_date(1996, 7, 4, 3600), {.format = "Short Date"}), "04.07.1996");
    EXPECT_EQ(in_german(make_date(1996, 7, 4, 3600), {.format = "Short Time"}), "01:00");
    EXPECT_EQ(in_german(make_date(1996, 7, 4, 3600), {.format = "General Date"}), "04.07.1996 01:00:00");
    EXPECT_EQ(in_german(make_date(100, 1, 1)), "01.01.100");
}

TEST(LocaleForms, WriteMoneyExactly) {
    EXPECT_EQ(in_german(Money{12345000}), "1.234,50\u00A0€");
    EXPECT_EQ(in_german(Money{-50}), "-0,01\u00A0€");
    EXPECT_EQ(in_german(Money{-49}), "0,00\u00A0€");
    EXPECT_EQ(shown(Money{-12345678905}, {}, american), "-$1,234,567.89");
    EXPECT_EQ(shown(Money{INT64_MIN}, {}, american), "-$922,337,203,685,477.58");
    EXPECT_EQ(in_german(Money{12345}, {.decimals = 4}), "1,2345\u00A0€");
    EXPECT_EQ(shown(Money{12345000}, {}, {}), "1234.50") << "nobody says in which currency";
    EXPECT_EQ(in_german(2.5, {.format = "Currency"}), "2,50\u00A0€");
}

TEST(LocaleForms, WriteNumbersWithoutTheirRoundingErrors) {
    EXPECT_EQ(in_german(std::int64_t{-12}), "-12");
    EXPECT_EQ(in_german(0.1 + 0.2), "0,3");
    EXPECT_EQ(in_german(double{0.15F}, {.kind = Kind::single}), "0,15");
    EXPECT_EQ(in_german(Decimal{"1234567890123456789012345.5"}), "1234567890123456789012345,5");
    EXPECT_EQ(in_german(0.25, {.format = "Percent"}), "25,00%");
    EXPECT_EQ(in_german(0.25, {.format = "Percent", .decimals = 0}), "25%");
    EXPECT_EQ(in_german(1234.5, {.format = "Standard"}), "1.234,50");
    EXPECT_EQ(in_german(1234.5, {.format = "Fixed"}), "1234,50");
}

TEST(LocaleForms, WriteNumbersAsSomebodysOwnFormatSays) {
    const auto by = [](double number, const char* format) { return in_german(number, {.format = format}); };
    EXPECT_EQ(by(12.0, "0000.00\" kg\""), "0012,00 kg");
    EXPECT_EQ(by(1234567.891, "#,##0.0#"), "1.234.567,89");
    EXPECT_EQ(by(0.5, "#.##"), ",5");
    EXPECT_EQ(by(3.0, "#.##"), "3");
    EXPECT_EQ(by(-0.256, "0.0%"), "-25,6%");
    EXPECT_EQ(by(-1.5, "0.0 \\h;(0.0)[Red];\"none\""), "(1,5)");
    EXPECT_EQ(by(0, "0.0;(0.0);\"none\""), "none");
    EXPECT_EQ(by(0, "0.0;(0.0)"), "0,0");
    EXPECT_EQ(in_german(Money{15000}, {.format = "0.00 €"}), "1,50 €");
    EXPECT_EQ(by(12.0, "0.00E+00"), "12") << "what is not understood is passed over";
    EXPECT_EQ(by(12.0, "\"open"), "12");
    EXPECT_EQ(in_german(Decimal{"1234567890123456789.5"}, {.format = "0"}), "1234567890123456789,5");
}

TEST(LocaleForms, WriteDatesAndTruthAsSomebodysOwnFormatSays) {
    const auto by = [](const char* format) {
        return in_german(make_date(1996, 7, 4, 46861), {.format = format});
    };
    EXPECT_EQ(by("dd/mm/yyyy"), "04/07/1996");
    EXPECT_EQ(by("d.m.yy h:mm:ss"), "4.7.96 13:01:01");
    EXPECT_EQ(by("dddd, d mmm yyyy \"at\" hh:nn AM/PM"), "Thursday, 4 Jul 1996 at 01:01 PM");
    EXPECT_EQ(by("mmmm \\Qq"), "July Q3");
    EXPECT_EQ(by("ww"), "04.07.1996 13:01:01") << "what is not understood is passed over";
    EXPECT_EQ(in_german(true, {.format = ";\"there\";\"gone\""}), "there");
    EXPECT_EQ(in_german(false, {.format = ";\"there\";\"gone\""}), "gone");
    EXPECT_EQ(in_german(false, {.format = "x"}), "Nein");
}

TEST(LocaleForms, WriteTruthNullAndWhatHasNoText) {
    EXPECT_EQ(in_german(true), "Ja");
    EXPECT_EQ(in_german(false), "Nein");
    EXPECT_EQ(in_german(true, {.format = "True/False"}), "True");
    EXPECT_EQ(in_german(Null()), "");
    EXPECT_EQ(in_german(Opaque{21504}), "(binary data, 21 KB)");
    EXPECT_EQ(in_german(Opaque{12}), "(binary data, 12 bytes)");
}

class TablePlanTest : public testing::Test {
  protected:
    /// So many columns of that need, on pages of 500 and 700 points.
    static TablePlan plan(std::size_t columns, ColumnNeed need) {
        return plan_table(std::vector<ColumnNeed>(columns, need), 500, 700, 10);
    }
    static double width(const TablePlan& plan, std::size_t first, std::size_t last) {
        double sum = -10;
        for (std::size_t i = first; i < last; ++i)
            sum += plan.widths[i] + 10;
        return sum;
    }
};

TEST_F(TablePlanTest, WhatFitsUprightStaysUpright) {
    const TablePlan narrow = plan(4, {10, 10});
    EXPECT_FALSE(narrow.is_landscape);
    EXPECT_EQ(narrow.font_size, 9);
    EXPECT_EQ(narrow.widths, std::vector<double>(4, 90));
    EXPECT_EQ(narrow.pages_across, (std::vector<std::size_t>{0, 4}));
}

TEST_F(TablePlanTest, MoreTurnsThePageThenHasSmallerLettersThenBrokenLines) {
    const TablePlan turned = plan(6, {10, 10});
    EXPECT_TRUE(turned.is_landscape);
    EXPECT_EQ(turned.widths, std::vector<double>(6, 90));
    const TablePlan broken = plan(7, {20, 5});
    EXPECT_EQ(broken.font_size, 8);
    EXPECT_NEAR(width(broken, 0, 7), 700, 0.01);
    const TablePlan small = plan(8, {9.5, 9.5});
    EXPECT_EQ(small.font_size, 8);
    EXPECT_LE(width(small, 0, 8), 700);
}

TEST_F(TablePlanTest, WhatFitsInNoWayGoesOnToPagesAcross) {
    const TablePlan wide = plan(20, {10, 10});
    ASSERT_EQ(wide.pages_across, (std::vector<std::size_t>{0, 7, 14, 20}));
    EXPECT_EQ(wide.font_size, 8);
    for (std::size_t i = 0; i + 1 < wide.pages_across.size(); ++i)
        EXPECT_LE(width(wide, wide.pages_across[i], wide.pages_across[i + 1]), 700);
}

TEST_F(TablePlanTest, OneColumnIsNeverWiderThanThePage) {
    const TablePlan one = plan(1, {1000, 1000});
    EXPECT_LE(one.widths[0], 700);
    EXPECT_EQ(one.pages_across, (std::vector<std::size_t>{0, 1}));
}

TEST(Pages, DivideNoRecordThatFitsOnOne) {
    const std::vector<std::size_t> lines{2, 3, 9};
    std::string text;
    for (const Page& page : divide(lines, 4, 6, {.line = 1, .padding = 0})) {
        for (const Slice& slice : page)
            text += std::to_string(slice.record) + ": " + std::to_string(slice.first) + "+" +
                    std::to_string(slice.count) + " ";
        text += "/ ";
    }
    EXPECT_EQ(text, "0: 0+2 / 1: 0+3 2: 0+3 / 2: 3+6 / ");
    EXPECT_EQ(divide({}, 4, 6, {.line = 1, .padding = 0}).size(), 1U);
}

}  // namespace
}  // namespace foliant::hosts::access
