#include "hosts/acrobat/text/words.h"

#include <gtest/gtest.h>

#include "hosts/acrobat/text/pages.h"

namespace foliant::hosts::acrobat::text {
namespace {

TEST(AcrobatWords, BringAlongTheBlankOrTheLineEndBehindThem) {
    EXPECT_EQ(words_of(page_of({U"Two words", U"and a line"})), "[Two ][words\r\n][and ][a ][line\r\n]");
}

TEST(AcrobatWords, OfAPageWithoutTextAreNone) {
    EXPECT_EQ(words_of({}), "");
}

TEST(AcrobatWords, OfColumnsComeColumnByColumn) {
    TestPage page;
    for (int i = 0; i < 6; ++i) {
        const char32_t digit = U'0' + static_cast<char32_t>(i);
        page.lines.push_back(
            {.x = 72, .y = 700 - 14.0 * i, .letters = std::u32string(U"left side ") + digit});
        page.lines.push_back(
            {.x = 350, .y = 700 - 14.0 * i, .letters = std::u32string(U"right side ") + digit});
    }
    const std::string text = words_of(page);
    EXPECT_LT(text.find("[left ][side ][5"), text.find("[right ][side ][0")) << text;
}

TEST(AcrobatWords, ThatWereBrokenAreWholeAndEndTheirLine) {
    EXPECT_EQ(words_of(page_of({U"an exam-", U"ple of it"})), "[an ][example\r\n][of ][it\r\n]");
}

TEST(AcrobatWords, KeepTheHyphenThatEndsTheText) {
    EXPECT_EQ(words_of(page_of({U"pre- and post-"})), "[pre- ][and ][post-\r\n]");
}

TEST(AcrobatWords, WrittenToTheLeftComeAsTheyAreRead) {
    // Shalom olam, as it stands on paper.
    EXPECT_EQ(words_of(page_of({U"\u05dd\u05dc\u05d5\u05e2 \u05dd\u05d5\u05dc\u05e9"})),
              "[\u05e9\u05dc\u05d5\u05dd ][\u05e2\u05d5\u05dc\u05dd\r\n]");
}

TEST(AcrobatWords, KeepNumbersInTextToTheLeft) {
    EXPECT_EQ(words_of(page_of({U"\u05dd\u05dc\u05d5\u05e2 12.5 \u05dd\u05d5\u05dc\u05e9"})),
              "[\u05e9\u05dc\u05d5\u05dd ][12.5 ][\u05e2\u05d5\u05dc\u05dd\r\n]");
}

TEST(AcrobatWords, ToTheLeftInATextToTheRightAreTurnedAlone) {
    EXPECT_EQ(words_of(page_of({U"The word \u05dd\u05d5\u05dc\u05e9 means peace"})),
              "[The ][word ][\u05e9\u05dc\u05d5\u05dd ][means ][peace\r\n]");
}

TEST(AcrobatWords, KeepTheNumberBehindAWordToTheLeft) {
    EXPECT_EQ(words_of(page_of({U"The word \u05dd\u05d5\u05dc\u05e9 12 is old"})),
              "[The ][word ][\u05e9\u05dc\u05d5\u05dd ][12 ][is ][old\r\n]");
}

TEST(AcrobatWords, OfALineToTheLeftAreReadFromItsRightEndOnAnyPage) {
    EXPECT_EQ(words_of(page_of({U"A long line of English words", U"1434 \u05dd\u05d5\u05dc\u05e9 14"})),
              "[A ][long ][line ][of ][English ][words\r\n][14 ][\u05e9\u05dc\u05d5\u05dd ][1434\r\n]");
}

TEST(AcrobatWords, KeepNumbersBesideEachOtherInTheirOrderToTheLeft) {
    EXPECT_EQ(words_of(page_of({U"\u05dd\u05dc\u05d5\u05e2 30 10-12 \u05dd\u05d5\u05dc\u05e9"})),
              "[\u05e9\u05dc\u05d5\u05dd ][10-12 ][30 ][\u05e2\u05d5\u05dc\u05dd\r\n]");
    EXPECT_EQ(words_of(page_of({U"\u0661\u0664-\u0660\u0664 \u05dd\u05d5\u05dc\u05e9"})),
              "[\u05e9\u05dc\u05d5\u05dd ][\u0660\u0664-\u0661\u0664\r\n]");
}

TEST(AcrobatWords, HaveTheirBracketsAroundThemToTheLeft) {
    const std::string in_brackets = "[\u05e2\u05dd ][(\u05e9\u05dc\u05d5\u05dd)\r\n]";
    EXPECT_EQ(words_of(page_of({U"(\u05dd\u05d5\u05dc\u05e9) \u05dd\u05e2"})), in_brackets) << "as they look";
    EXPECT_EQ(words_of(page_of({U")\u05dd\u05d5\u05dc\u05e9( \u05dd\u05e2"})), in_brackets) << "as they are";
    EXPECT_EQ(words_of(page_of({U"(abc) \u05dd\u05d5\u05dc\u05e9 \u05dd\u05e2"})),
              "[\u05e2\u05dd ][\u05e9\u05dc\u05d5\u05dd ][(abc)\r\n]");
}

TEST(AcrobatWords, InARectangleAreThoseWhoseMiddleLiesInIt) {
    TextReader reader(bytes_of(make_pdf({page_of({U"one two three", U"four five six"})})), "");
    const Rectangle left_half{.left = 0, .bottom = 0, .right = 110, .top = 792};
    EXPECT_EQ(separate(words(*reader.page(0), &left_half)),
              (std::vector<std::string>{"one ", "two\r\n", "four\r\n"}));
}

TEST(AcrobatWords, AreUtf8) {
    EXPECT_EQ(utf8(U"a\u00e9\u4e2d\U0001F600"), "a\u00e9\u4e2d\U0001F600");
    EXPECT_EQ(utf8(std::u32string(1, char32_t{0xD800})), "\uFFFD");
}

TEST(AcrobatWords, OfATurnedPageAreReadAsItIsSeen) {
    TestPage page = page_of({U"a turned", U"page"});
    page.entries = "/Rotate 90";
    EXPECT_EQ(words_of(page), "[a ][turned\r\n][page\r\n]");
}

}  // namespace
}  // namespace foliant::hosts::acrobat::text
