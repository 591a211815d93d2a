#include "hosts/office/excel/header_text.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace foliant::hosts::office {
namespace {

using Kind = HeaderPiece::Kind;
using Pieces = std::vector<HeaderPiece>;

HeaderPiece text(std::string words, PieceStyle style = {}) {
    return {Kind::text, std::move(words), std::move(style)};
}
HeaderPiece field(Kind kind, PieceStyle style = {}) {
    return {kind, "", std::move(style)};
}

TEST(HeaderText, WithoutCodesIsText) {
    EXPECT_EQ(parse_header("Sales 2026"), (Pieces{text("Sales 2026")}));
    EXPECT_EQ(parse_header(""), Pieces{});
    EXPECT_EQ(parse_header("two\r\nlines"), (Pieces{text("two\nlines")}));
}

TEST(HeaderText, PutsInWhatDiffersFromPageToPage) {
    EXPECT_EQ(parse_header("Page &P of &N"),
              (Pieces{text("Page "), field(Kind::page), text(" of "), field(Kind::pages)}));
    EXPECT_EQ(parse_header("&D&T&A&F&Z"), (Pieces{field(Kind::date), field(Kind::time), field(Kind::sheet),
                                                  field(Kind::file), field(Kind::folder)}));
    EXPECT_EQ(parse_header("&p"), (Pieces{field(Kind::page)})) << "case does not matter";
}

TEST(HeaderText, HasAmpersandsWrittenTwice) {
    EXPECT_EQ(parse_header("Smith && Sons"), (Pieces{text("Smith & Sons")}));
    EXPECT_EQ(parse_header("last &"), (Pieces{text("last &")}));
}

TEST(HeaderText, IsDividedWhereACodeNamesAPlace) {
    using Sections = std::vector<HeaderSection>;
    EXPECT_EQ(sections_of("Page &P"), (Sections{{0, "Page &P"}}));
    EXPECT_EQ(sections_of("a&Lb&cc && d&R&\"Lucida &R,Bold\"&P"),
              (Sections{{0, "a"}, {'l', "b"}, {'c', "c && d"}, {'r', "&\"Lucida &R,Bold\"&P"}}));
    EXPECT_EQ(sections_of("R&&R &"), (Sections{{0, "R&&R &"}}));
    EXPECT_EQ(sections_of("&\"open"), (Sections{{0, "&\"open"}}));
}

TEST(HeaderText, ChangesItsLookUntilTheNextCodeOfThatKind) {
    EXPECT_EQ(parse_header("a&Bb&Ic&Bd"),
              (Pieces{text("a"), text("b", {.bold = true}), text("c", {.bold = true, .italic = true}),
                      text("d", {.italic = true})}));
    EXPECT_EQ(parse_header("&Ua&U&Eb&E&Sc&S&Xd&X&Ye"),
              (Pieces{text("a", {.underlined = true}), text("b", {.double_underlined = true}),
                      text("c", {.struck = true}), text("d", {.superscript = true}),
                      text("e", {.subscript = true})}));
}

TEST(HeaderText, TakesAFontASizeAndAColour) {
    EXPECT_EQ(parse_header("&\"Arial,Bold Italic\"a"),
              (Pieces{text("a", {.font = "Arial", .bold = true, .italic = true})}));
    EXPECT_EQ(parse_header("&\"Arial,Regular\"&14a&8b"),
              (Pieces{text("a", {.font = "Arial", .size = 14}), text("b", {.font = "Arial", .size = 8})}));
    EXPECT_EQ(parse_header("&\"-,Bold\"a"), (Pieces{text("a", {.bold = true})}));
    EXPECT_EQ(parse_header("&KFF8000a&K01+000b"), (Pieces{text("ab", {.color = 0xFF8000})}))
        << "a colour of the theme changes nothing";
}

TEST(HeaderText, TakesOddCodesForNothing) {
    EXPECT_EQ(parse_header("a&Gb&Oc&Hd&Qe"), (Pieces{text("abcde")}));
    EXPECT_EQ(parse_header("&\"Arial"), Pieces{});
    EXPECT_EQ(parse_header("&K12"), Pieces{});
    EXPECT_EQ(parse_header("&99999999999999999999a").size(), 1);
}

TEST(HeaderText, RefusesPageNumbersCountedFromElsewhere) {
    const auto error = tests::error_of([] { parse_header("Page &P+2"); });
    EXPECT_EQ(error.number(), 1004);
    EXPECT_NE(error.description().find("&P+2"), std::string::npos) << error.description();
    EXPECT_EQ(parse_header("&P-&N"), (Pieces{field(Kind::page), text("-"), field(Kind::pages)}));
}

TEST(HeaderText, IsAsHighAsItsLines) {
    EXPECT_DOUBLE_EQ(height_of(parse_header("one"), 10), 12);
    EXPECT_DOUBLE_EQ(height_of(parse_header("&20one"), 10), 24);
    EXPECT_DOUBLE_EQ(height_of(parse_header("&20one\n&8two"), 10), (20 + 10) * 1.2);
    EXPECT_DOUBLE_EQ(height_of(parse_header("one\ntwo\nthree"), 10), 3 * 12);
}

}  // namespace
}  // namespace foliant::hosts::office
