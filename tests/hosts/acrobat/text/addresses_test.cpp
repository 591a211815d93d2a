#include "hosts/acrobat/text/addresses.h"

#include <gtest/gtest.h>

#include "hosts/acrobat/text/pages.h"

namespace foliant::hosts::acrobat::text {
namespace {

/// The addresses of a page with these lines, each with how many lines it stands in.
std::string found_in(const std::vector<std::u32string>& lines) {
    TextReader reader(bytes_of(make_pdf({page_of(lines)})), "");
    std::string list;
    for (const Address& address : addresses(*reader.page(0)))
        list += address.uri + " (" + std::to_string(address.places.size()) + ") ";
    return list;
}

TEST(AcrobatAddresses, AreThoseWithASchemeAndThoseOfTheWeb) {
    EXPECT_EQ(
        found_in({U"See http://example.org/a?b=c#d or HTTPS://Example.org", U"and www.example.net today"}),
        "http://example.org/a?b=c#d (1) HTTPS://Example.org (1) http://www.example.net (1) ");
}

TEST(AcrobatAddresses, AreMailboxesToo) {
    EXPECT_EQ(found_in({U"Ask jane.doe+pdf@mail.example.org, or", U"mailto:joe@example.com!"}),
              "mailto:jane.doe+pdf@mail.example.org (1) mailto:joe@example.com (1) ");
}

TEST(AcrobatAddresses, EndBeforeThePunctuationOfTheirSentence) {
    EXPECT_EQ(
        found_in({U"(see http://example.org/a). <http://example.org/b>, \u201chttp://example.org/c\u201d",
                  U"http://example.org/wiki/Page_(film)!?"}),
        "http://example.org/a (1) http://example.org/b (1) http://example.org/c (1) "
        "http://example.org/wiki/Page_(film) (1) ");
}

TEST(AcrobatAddresses, HoldTheApostrophesThatStandBetweenTheirLetters) {
    EXPECT_EQ(
        found_in({U"http://a.example/x'y and http://b.example/x\u2019y, 'http://c.example/x' or",
                  U"\u2018http://d.example/x\u2019 or http://e.example/x'. and http://f.example\u2019s"}),
        "http://a.example/x'y (1) http://b.example/x'y (1) http://c.example/x (1) http://d.example/x (1) "
        "http://e.example/x (1) http://f.example (1) ");
    EXPECT_EQ(found_in({U"at http://example.org/it\u2019s/", U"/some/path"}),
              "http://example.org/it's//some/path (2) ");
}

TEST(AcrobatAddresses, GoOnInTheNextLine) {
    EXPECT_EQ(found_in({U"It is at http://example.org/some/long/", U"path/index.html for now."}),
              "http://example.org/some/long/path/index.html (2) ");
    EXPECT_EQ(found_in({U"at http://example.org/some?name=", U"value&x=1"}),
              "http://example.org/some?name=value&x=1 (2) ");
    EXPECT_EQ(found_in({U"at http://example.org/some-", U"thing.html"}),
              "http://example.org/some-thing.html (2) ");
    EXPECT_EQ(found_in({U"at http://example.org", U"/some/path"}), "http://example.org/some/path (2) ");
    EXPECT_EQ(found_in({U"write to somebody@", U"example.org now"}), "mailto:somebody@example.org (2) ");
}

TEST(AcrobatAddresses, GoOnOverSeveralLines) {
    EXPECT_EQ(found_in({U"http://example.org/a/", U"b/c/", U"d.html and http://example.com"}),
              "http://example.org/a/b/c/d.html (3) http://example.com (1) ");
}

TEST(AcrobatAddresses, BrokenInAWordGoOnWhereTheLineIsFull) {
    EXPECT_EQ(
        found_in({U"A line of words that is just as long as it", U"http://example.org/some/path/to/a/docu",
                  U"ment/index.html and more of the same text."}),
        "http://example.org/some/path/to/a/document/index.html (2) ");
}

TEST(AcrobatAddresses, DoNotTakeTheNextSentence) {
    EXPECT_EQ(found_in({U"See http://example.org/page", U"for more."}), "http://example.org/page (1) ");
    EXPECT_EQ(found_in({U"See http://example.org/page.", U"the rest follows"}),
              "http://example.org/page (1) ");
    EXPECT_EQ(found_in({U"See http://example.org/page", U"http://example.com/other"}),
              "http://example.org/page (1) http://example.com/other (1) ");
    EXPECT_EQ(found_in({U"Mail joe@example.org.", U"then wait"}), "mailto:joe@example.org (1) ");
}

TEST(AcrobatAddresses, AreNoneWhereTheyAreNone) {
    EXPECT_EQ(found_in({U"http:// www. @ user@ @host a@b http://... www.x xhttp.org 3@4.5"}), "");
}

TEST(AcrobatAddresses, AreAsciiInLinks) {
    EXPECT_EQ(found_in({U"http://m\u00fcnchen.example/stra\u00dfe"}),
              "http://xn--mnchen-3ya.example/stra%C3%9Fe (1) ");
}

TEST(AcrobatAddresses, EndWhereChineseGoesOn) {
    EXPECT_EQ(found_in({U"\u8bf7\u770bhttp://example.org/a\u7f51\u7ad9"}), "http://example.org/a (1) ");
}

TEST(AcrobatAddresses, SeeThroughLigatures) {
    EXPECT_EQ(found_in({U"http://example.org/\uFB01les"}), "http://example.org/files (1) ");
}

}  // namespace
}  // namespace foliant::hosts::acrobat::text
