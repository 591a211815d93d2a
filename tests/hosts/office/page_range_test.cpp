#include "hosts/office/print/page_range.h"

#include <gtest/gtest.h>

#include "hosts/office/support.h"
#include "hosts/office/word/word_error.h"
#include "support/error_of.h"

namespace foliant::hosts::office {
namespace {

std::string read(const std::string& expression, int pages = 9) {
    return format_page_runs(parse_page_range(expression, pages, "letter.docx", microsoft_word));
}

TEST(PageRange, ReadsPagesAndRuns) {
    EXPECT_EQ(read("2"), "2-2");
    EXPECT_EQ(read("1-3,5"), "1-3,5-5");
    EXPECT_EQ(read("1;4-6"), "1-1,4-6");
}

TEST(PageRange, ReadsRunsWithAnOpenEnd) {
    EXPECT_EQ(read("-3"), "1-3");
    EXPECT_EQ(read("4-"), "4-9");
}

TEST(PageRange, KeepsTheOrderThatWasGiven) {
    EXPECT_EQ(read("5,3-1,5"), "5-5,3-1,5-5");
}

TEST(PageRange, DoesNotMindBlanks) {
    EXPECT_EQ(read(" 1 - 3 ,\t5 "), "1-3,5-5");
}

TEST(PageRange, IsEmptyForAnEmptyExpression) {
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(read("   "), "");
}

TEST(PageRange, RefusesWhatItDoesNotUnderstand) {
    for (const char* expression : {"p1s2", "-", "1--3", "two", "1,,2", "1-2-3", "+1", "1.5"}) {
        const auto error = tests::error_of([&] { read(expression); });
        EXPECT_EQ(error.number(), 4608) << expression;
        EXPECT_NE(error.description().find("is not understood"), std::string::npos) << error.description();
    }
}

TEST(PageRange, SaysHowManyPagesThereAre) {
    EXPECT_EQ(tests::error_of([] { read("2-12"); }).description(),
              "The page range \"2-12\" names page 12, but letter.docx has 9 pages.");
    EXPECT_EQ(tests::error_of([] { read("2", 1); }).description(),
              "The page range \"2\" names page 2, but letter.docx has 1 page.");
    EXPECT_EQ(tests::error_of([] { read("0"); }).number(), 4608);
}

TEST(PageRange, SurvivesNumbersOfAnySize) {
    EXPECT_EQ(tests::error_of([] { read("99999999999999999999"); }).description(),
              "The page range \"99999999999999999999\" names page 99999999999999999999, but letter.docx has "
              "9 pages.");
}

}  // namespace
}  // namespace foliant::hosts::office
