#include "hosts/office/excel/cell_areas.h"

#include <gtest/gtest.h>

namespace foliant::hosts::office {
namespace {

using Parts = std::vector<std::string_view>;

TEST(CellAreas, AreReadAsExcelsUsersWriteThem) {
    EXPECT_EQ(parse_area("A1"), (CellArea{0, 0, 0, 0}));
    EXPECT_EQ(parse_area("B2:F40"), (CellArea{1, 1, 5, 39}));
    EXPECT_EQ(parse_area("$b$2:f$40"), (CellArea{1, 1, 5, 39}));
    EXPECT_EQ(parse_area("AA10"), (CellArea{26, 9, 26, 9}));
    EXPECT_EQ(parse_area("F40:B2"), (CellArea{1, 1, 5, 39}));
    EXPECT_EQ(parse_area("F2:B40"), (CellArea{1, 1, 5, 39}));
}

TEST(CellAreas, MayBeWholeColumnsAndRows) {
    EXPECT_EQ(parse_area("A:C"), (CellArea{0, 0, 2, 1048575, true, false}));
    EXPECT_EQ(parse_area("$C:$A"), (CellArea{0, 0, 2, 1048575, true, false}));
    EXPECT_EQ(parse_area("2:5"), (CellArea{0, 1, 16383, 4, false, true}));
}

TEST(CellAreas, EndWhereExcelsSheetsEnd) {
    EXPECT_EQ(parse_area("XFD1048576"), (CellArea{16383, 1048575, 16383, 1048575}));
    EXPECT_FALSE(parse_area("XFE1"));
    EXPECT_FALSE(parse_area("A1048577"));
    EXPECT_FALSE(parse_area("A99999999999999999999"));
    EXPECT_FALSE(parse_area("ABCDEFGHIJKLMNOPQR1"));
}

TEST(CellAreas, AreNothingElse) {
    for (const char* text : {"", "A", "1", "A0", "0:1", "A1:", ":A1", "A1:B", "A:1", "1A", "A1:B2:C3", "A-1",
                             "Prices", "A1 B2", "$", "A$", "$$A1"})
        EXPECT_FALSE(parse_area(text)) << text;
}

TEST(CellAreas, AreSeparatedByCommasAndSemicolons) {
    EXPECT_EQ(split_areas("A1:B2, D4 ;Prices"), (Parts{"A1:B2", "D4", "Prices"}));
    EXPECT_EQ(split_areas(" A1 "), (Parts{"A1"}));
    EXPECT_EQ(split_areas("A1,,B2"), (Parts{"A1", "", "B2"}));
    EXPECT_EQ(split_areas("'Sales, all'!A1,B2"), (Parts{"'Sales, all'!A1", "B2"}));
    EXPECT_EQ(split_areas(""), (Parts{""}));
}

}  // namespace
}  // namespace foliant::hosts::office
