#include "automation/text.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace foliant::automation {
namespace {

TEST(Text, TrimTakesBlanksOnlyAndOnlyAtTheEnds) {
    EXPECT_EQ(trim_blanks("  a b  "), "a b");
    EXPECT_EQ(trim_blanks("   "), "");
    EXPECT_EQ(trim_blanks(""), "");
    EXPECT_EQ(trim_blanks("\ta\t"), "\ta\t");
}

TEST(Text, LengthCountsUtf16Units) {
    EXPECT_EQ(text_length("abc"), 3U);
    EXPECT_EQ(text_length("bücher"), 6U);
    EXPECT_EQ(text_length("\U0001F600"), 2U);
    EXPECT_EQ(text_length("\xFF\xFE"), 2U);
}

TEST(Text, WithoutLastCutsWholeCharacters) {
    EXPECT_EQ(without_last("book.pdf", 3), "book.");
    EXPECT_EQ(without_last("a.pdü", 3), "a.");
    EXPECT_EQ(without_last("pdf", 3), "");
    EXPECT_EQ(without_last("ü\xFF.", 2), "ü");
}

TEST(Text, WithoutLastRefusesATextThatIsTooShort) {
    try {
        without_last("ps", 3);
        FAIL() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 5);
        EXPECT_EQ(error.description(), "Invalid procedure call or argument");
    }
}

TEST(Text, LowerCaseCoversLatinGreekAndCyrillic) {
    EXPECT_EQ(to_lower("REPORT ÄÖÜ ŁŽŸ ΣΩ ЖЁ"), "report äöü łžÿ σω жё");
    EXPECT_EQ(to_lower("×÷ß"), "×÷ß");
    EXPECT_EQ(to_lower("A\xFF"), "a\xFF");
    EXPECT_TRUE(equal_ignoring_case("Save PDF File As", "save pdf file as"));
    EXPECT_FALSE(equal_ignoring_case("Save", "Save "));
    EXPECT_TRUE(equal_ignoring_case("AÄ\xFFZ", "aä\xFFz"));
    EXPECT_FALSE(equal_ignoring_case("aä", "aö"));
}

TEST(Text, ComesInTheOrderOfItsSmallLetters) {
    const std::vector<std::string> sorted = {"", "_", "A", "a b", "AB", "b", "Zebra", "ä", "Äb", "Ö", "\xFF"};
    for (std::size_t i = 0; i < sorted.size(); ++i)
        for (std::size_t j = 0; j < sorted.size(); ++j)
            EXPECT_EQ(compare_ignoring_case(sorted[i], sorted[j]) < 0, i < j)
                << sorted[i] << ", " << sorted[j];
}

TEST(Text, FileNamePartIsWhatFollowsTheLastSeparator) {
    EXPECT_EQ(file_name_part("C:\\Out\\Report.PDF", '\\'), "Report.PDF");
    EXPECT_EQ(file_name_part("Report.PDF", '\\'), "Report.PDF");
    EXPECT_EQ(file_name_part("/out/", '/'), "");
}

TEST(Text, WithSeparatorEndsInOneAndNoMore) {
    EXPECT_EQ(with_separator("C:\\in", '\\'), "C:\\in\\");
    EXPECT_EQ(with_separator("C:\\in\\", '\\'), "C:\\in\\");
    EXPECT_EQ(with_separator("", '/'), "/");
}

}  // namespace
}  // namespace foliant::automation
