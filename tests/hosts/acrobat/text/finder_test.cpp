#include "hosts/acrobat/text/finder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/acrobat/text/pages.h"

namespace foliant::hosts::acrobat::text {
namespace {

using testing::DoubleNear;

constexpr std::size_t plenty = 1U << 24U;

/// The contexts of all hits.
std::vector<std::string> hits(const std::vector<TestPage>& pages, const Query& query,
                              std::size_t most_bytes = plenty) {
    TextReader reader(bytes_of(make_pdf(pages)), "");
    Finder finder(reader, most_bytes);
    std::vector<std::string> found;
    Position from;
    while (const auto hit = finder.find(query, from)) {
        found.push_back(std::to_string(hit->page + 1) + ": " + hit->context);
        from = hit->behind;
    }
    return found;
}

bool has(std::u32string_view text, std::string sought) {
    return !hits({page_of({std::u32string(text)})}, {.text = std::move(sought)}).empty();
}

using Strings = std::vector<std::string>;

TEST(AcrobatFinder, SaysThePageAndTheLine) {
    EXPECT_EQ(hits({page_of({U"nothing here"}), page_of({U"first line", U"with the needle in it"})},
                   {.text = "needle"}),
              Strings{"2: with the needle in it"});
}

TEST(AcrobatFinder, SaysWhereOnThePage) {
    TextReader reader(bytes_of(make_pdf({page_of({U"some text"})})), "");
    const auto hit = Finder(reader, plenty).find({.text = "text"});
    ASSERT_TRUE(hit);
    ASSERT_EQ(hit->places.size(), 1U);
    // Letters are 6 points wide, the fifth begins 30 points behind the margin of 72.
    EXPECT_THAT(hit->places[0].left, DoubleNear(102, 0.01));
    EXPECT_THAT(hit->places[0].right, DoubleNear(126, 0.01));
    EXPECT_LT(hit->places[0].bottom, 700);
    EXPECT_GT(hit->places[0].top, 705);
    EXPECT_LT(hit->places[0].top, 715);
}

TEST(AcrobatFinder, SaysWhereInThePagesOwnCoordinates) {
    TestPage page = page_of({U"some text"});
    page.entries = "/Rotate 90 /MediaBox [50 50 662 842]";
    TextReader reader(bytes_of(make_pdf({page})), "");
    const auto hit = Finder(reader, plenty).find({.text = "text"});
    ASSERT_TRUE(hit);
    EXPECT_THAT(hit->places[0].left, DoubleNear(102, 0.01));
    EXPECT_THAT(hit->places[0].right, DoubleNear(126, 0.01));
    EXPECT_LT(hit->places[0].bottom, 700);
    EXPECT_GT(hit->places[0].top, 705);
}

TEST(AcrobatFinder, IgnoresCaseUnlessItCounts) {
    const std::vector<TestPage> pages{page_of({U"The Needle", U"a needle"})};
    EXPECT_EQ(hits(pages, {.text = "NEEDLE"}).size(), 2U);
    EXPECT_EQ(hits(pages, {.text = "Needle", .case_sensitive = true}), Strings{"1: The Needle"});
}

TEST(AcrobatFinder, FindsWholeWordsOnlyWhereAsked) {
    const std::vector<TestPage> pages{page_of({U"pineapple", U"an apple, red", U"apples"})};
    EXPECT_EQ(hits(pages, {.text = "apple"}).size(), 3U);
    EXPECT_EQ(hits(pages, {.text = "apple", .whole_words = true}), Strings{"1: an apple, red"});
}

TEST(AcrobatFinder, GoesOnFromAPosition) {
    TextReader reader(bytes_of(make_pdf({page_of({U"one two one"}), page_of({U"one"})})), "");
    Finder finder(reader, plenty);
    const Query one{.text = "one"};
    const auto first = finder.find(one);
    EXPECT_THAT(first->places.front().left, DoubleNear(72, 0.01));
    const auto second = finder.find(one, first->behind);
    EXPECT_THAT(second->places.front().left, DoubleNear(120, 0.01));
    EXPECT_FALSE(finder.find({.text = "two"}, second->behind)) << "it stands before the second hit";
    const auto third = finder.find(one, second->behind);
    EXPECT_EQ(third->page, 1);
    EXPECT_FALSE(finder.find(one, third->behind));
    EXPECT_EQ(finder.find(one)->page, 0);
}

TEST(AcrobatFinder, CrossesLineEnds) {
    const auto found = hits({page_of({U"at the end of", U"a line it goes on"})}, {.text = "end of a line"});
    EXPECT_EQ(found, Strings{"1: at the end of a line it goes on"});
}

TEST(AcrobatFinder, HasAPlaceForEachLine) {
    TextReader reader(bytes_of(make_pdf({page_of({U"at the end of", U"a line"})})), "");
    const auto hit = Finder(reader, plenty).find({.text = "of a"});
    ASSERT_TRUE(hit);
    ASSERT_EQ(hit->places.size(), 2U);
    EXPECT_GT(hit->places[0].bottom, hit->places[1].bottom);
}

TEST(AcrobatFinder, TakesAHyphenAtALineEndAsItIsSought) {
    const std::vector<TestPage> pages{page_of({U"a well-", U"known exam-", U"ple"})};
    EXPECT_EQ(hits(pages, {.text = "well-known"}).size(), 1U);
    EXPECT_EQ(hits(pages, {.text = "wellknown"}).size(), 1U);
    EXPECT_EQ(hits(pages, {.text = "example", .whole_words = true}).size(), 1U);
    EXPECT_EQ(hits(pages, {.text = "ple", .whole_words = true}).size(), 0U);
    EXPECT_EQ(hits({page_of({U"a well-known one"})}, {.text = "wellknown"}).size(), 0U);
}

TEST(AcrobatFinder, SeesThroughLigaturesAndSoftHyphens) {
    EXPECT_TRUE(has(U"the \uFB01nal o\uFB03ce", "final office"));
    EXPECT_TRUE(has(U"ex\u00ADam\u00ADple", "example"));
    EXPECT_TRUE(has(U"example", "ex\u00ADample"));
}

TEST(AcrobatFinder, FindsAccentsComposedAndDecomposed) {
    EXPECT_TRUE(has(U"caf\u00e9 au lait", "cafe\u0301 au"));
    EXPECT_TRUE(has(U"cafe\u0301 au lait", "caf\u00e9 au"));
    EXPECT_TRUE(has(U"CAF\u00c9", "caf\u00e9"));
    EXPECT_FALSE(has(U"caf\u00e9", "cafe")) << "an accent makes it another letter";
}

TEST(AcrobatFinder, TakesTypographicSignsForTheTypedOnes) {
    EXPECT_TRUE(has(U"it\u2019s \u201cso\u201d", "it's \"so\""));
    EXPECT_TRUE(has(U"non\u2011breaking", "non-breaking"));
}

TEST(AcrobatFinder, FindsTextToTheLeft) {
    EXPECT_TRUE(
        has(U"\u05dd\u05dc\u05d5\u05e2 \u05dd\u05d5\u05dc\u05e9", "\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5"));
}

TEST(AcrobatFinder, FindsChineseAcrossLineEndsAndInWholeWords) {
    const std::vector<TestPage> pages{page_of({U"\u4e2d\u6587\u6587", U"\u672c\u641c\u7d22"})};
    EXPECT_EQ(hits(pages, {.text = "\u6587\u672c", .whole_words = true}).size(), 1U);
    EXPECT_TRUE(has(U"\uFF21\uFF22\uFF23", "abc")) << "full-width letters";
}

TEST(AcrobatFinder, FindsNothingForAnEmptyText) {
    EXPECT_FALSE(has(U"some text", ""));
    EXPECT_FALSE(has(U"some text", "  "));
}

TEST(AcrobatFinder, KeepsBlanksThatAreSought) {
    EXPECT_EQ(hits({page_of({U"them and the"})}, {.text = "the "}), Strings{"1: them and the"});
    EXPECT_FALSE(has(U"them", "the "));
}

TEST(AcrobatFinder, FindsTheSameWithoutMemoryForThePages) {
    std::vector<TestPage> pages(40, page_of({U"page"}));
    EXPECT_EQ(hits(pages, {.text = "page"}, 0).size(), 40U);
    EXPECT_EQ(hits(pages, {.text = "page"}, plenty).size(), 40U);
}

TEST(AcrobatFinder, CutsLongLinesAroundTheHit) {
    TestPage page;
    page.lines.push_back(
        {.x = 10, .letters = std::u32string(300, U'x') + U" needle " + std::u32string(300, U'y'), .size = 1});
    const auto found = hits({page}, {.text = "needle"});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0], "1: …" + std::string(119, 'x') + " needle " + std::string(120, 'y') + "…");
}

}  // namespace
}  // namespace foliant::hosts::acrobat::text
