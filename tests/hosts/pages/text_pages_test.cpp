#include "hosts/pages/text_pages.h"

#include <gtest/gtest.h>

#include "hosts/pages/postscript_pages.h"

namespace foliant::hosts::pages {
namespace {

/// Notes what is drawn: "| " where a page begins, then texts, and areas as "_".
class Notes : public Canvas {
  public:
    void start_page() override { note("|"); }
    void set_color(std::uint32_t /*color*/) override {}
    void show(const GlyphRun& run, double left, double baseline) override {
        note(run.text);
        lefts.push_back(left);
        for (const Glyph& glyph : run.glyphs)
            if (glyph.index == 0) ++boxes;
        baselines.push_back(baseline);
    }
    void fill(double /*left*/, double /*top*/, double width, double /*height*/) override {
        note("_");
        widths.push_back(width);
    }

    std::string text;
    std::vector<double> lefts;
    std::vector<double> baselines;
    std::vector<double> widths;
    std::size_t boxes = 0;  ///< for letters that the font does not have

  private:
    void note(std::string_view what) { text += (text.empty() ? "" : " ") + std::string(what); }
};

class TextPagesTest : public testing::Test {
  protected:
    /// Ten letters wide, three lines high.
    TextPages pages_of(std::string_view text, const TextPages::Look& look = {}) {
        const TextPages::Area area{20, 3 * shaper.line_height()};
        return {text, shaper, look, {30, 10 * shaper.space().width, area, area}};
    }

    std::string drawn(std::string_view text, const TextPages::Look& look = {}) {
        TextPages pages = pages_of(text, look);
        notes.text.clear();
        for (int page = 1; pages.has(page); ++page) {
            notes.start_page();
            pages.draw(page, notes);
        }
        return notes.text;
    }

    Shaper shaper{{"Liberation Mono", 8}};
    Notes notes;
};

TEST_F(TextPagesTest, AreFullWhenTheirLinesAre) {
    EXPECT_EQ(drawn("a\nb\nc\nd\n"), "| a b c | d");
    EXPECT_EQ(drawn("a\nb\nc\n"), "| a b c");
    EXPECT_EQ(drawn(""), "|");
}

TEST_F(TextPagesTest, EndAtEveryFormFeed) {
    EXPECT_EQ(drawn("a\fb\n\fc\f\fd\f"), "| a | b | c | | d |");
    EXPECT_EQ(drawn("\fa"), "| | a");
    EXPECT_EQ(drawn("a\nb\nc\n\fd"), "| a b c | d") << "a page that is full anyway is not fed twice";
}

TEST_F(TextPagesTest, LinesEndBetweenWords) {
    EXPECT_EQ(drawn("four letters"), "| four letters");
    EXPECT_EQ(drawn("one two three"), "| one two three");
    EXPECT_EQ(drawn("well-known names"), "| well-known names");
    EXPECT_EQ(drawn("abcdef-ghijk"), "| abcdef- ghijk");
    EXPECT_EQ(drawn("abc 0123456789abcdef"), "| abc 0123456789 abcdef");
}

TEST_F(TextPagesTest, BlanksHangOverTheEndOfALine) {
    EXPECT_EQ(drawn("0123456789      next"), "| 0123456789 next");
    EXPECT_EQ(notes.lefts, (std::vector<double>{30, 30}));
    notes.lefts.clear();
    EXPECT_EQ(drawn("  in"), "|   in") << "at the beginning they are an indent";
}

TEST_F(TextPagesTest, TabsStandEveryOneAndAQuarterCentimetres) {
    EXPECT_EQ(drawn("\ta\n01234567\tb"), "| a 01234567 b");
    EXPECT_NEAR(notes.lefts.at(0), 30 + 35.45, 0.01);
    EXPECT_NEAR(notes.lefts.at(2), 30 + 35.45, 0.01) << "behind the end of the line it is on the next one";
}

TEST_F(TextPagesTest, TabsBesideLettersOfAnyScriptStandThereToo) {
    EXPECT_EQ(drawn("\t\u00e4\n\t\u05d0"), "| \u00e4 \t \u05d0");
    EXPECT_NEAR(notes.lefts.at(0), 30 + 35.45, 0.01);
    EXPECT_NEAR(notes.lefts.at(2), 30 + 35.45, 0.01);
}

TEST_F(TextPagesTest, NothingIsDrawnForTabsAndForLettersThatJoinOthers) {
    drawn("\t\u05d0\u200d\u05d1");
    EXPECT_EQ(notes.boxes, 0U);
    drawn("\U0010fffd");
    EXPECT_EQ(notes.boxes, 1U) << "for letters that no font has";
}

TEST_F(TextPagesTest, EveryScriptIsLaidOut) {
    const std::string text = drawn("e\u0301 \u05d0\u05d1 \u65e5\u672c");
    for (const char* part : {"\u05d0\u05d1", "\u65e5\u672c"})
        EXPECT_NE(text.find(part), std::string::npos) << text;
}

TEST_F(TextPagesTest, LettersOfOtherFontsDoNotMoveTheLines) {
    drawn("a\n\u0e20\u0e32\nb");
    EXPECT_NEAR(notes.baselines.front(), 20 + shaper.ascent(), 0.01);
    EXPECT_NEAR(notes.baselines.back(), 20 + shaper.ascent() + 2 * shaper.line_height(), 0.01);
}

TEST_F(TextPagesTest, AnUnderlineIsAsLongAsItsLine) {
    EXPECT_EQ(drawn("ab cd\n\nx", {.is_underlined = true}), "| ab cd _ x _");
    EXPECT_NEAR(notes.widths.front(), 5 * shaper.space().width, 0.01);
    notes.widths.clear();
    EXPECT_EQ(drawn("\tab", {.is_underlined = true}), "| ab _");
    EXPECT_NEAR(notes.widths.front(), 35.45 + 2 * shaper.space().width, 0.01) << "with its indent";
}

TEST_F(TextPagesTest, CanBeDrawnInAnyOrder) {
    TextPages pages = pages_of("a\nb\nc\n0123456789 12345\nd\fe\n");
    EXPECT_EQ(pages.count(), 3);
    for (const int page : {3, 2, 1, 2})
        pages.draw(page, notes);
    EXPECT_EQ(notes.text, "e 0123456789 12345 d a b c 0123456789 12345 d");
    EXPECT_FALSE(pages.has(4));
}

TEST_F(TextPagesTest, ALineMayBeOnTwoPages) {
    EXPECT_EQ(drawn("a\nb\n0123456789 01234 56789"), "| a b 0123456789 | 01234 56789");
    EXPECT_EQ(drawn("a\nb\n0123456789 0123456"), "| a b 0123456789 | 0123456");
}

class PostScriptPagesTest : public TextPagesTest {
  protected:
    std::string written(std::string_view text) {
        PostScriptPages writer({300, 400}, {.title = "Gr\u00f6\u00dfe (1)", .creator = "Test"}, "en-US");
        TextPages pages = pages_of(text);
        for (int page = 1; pages.has(page); ++page) {
            writer.start_page();
            pages.draw(page, writer);
        }
        EXPECT_TRUE(writer.is_complete());
        return writer.finished();
    }
};

std::size_t count_of(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string_view::npos;
         place = text.find(part, place + 1))
        ++count;
    return count;
}

TEST_F(PostScriptPagesTest, ALineIsAStringAndAPlace) {
    const std::string text = written("a (b) \\");
    EXPECT_NE(text.find("(a \\(b\\) \\\\)30 "), std::string::npos) << text;
    EXPECT_EQ(count_of(" foliantS\n", text), 1U);
    EXPECT_EQ(count_of("foliantX\n", text), 0U) << "a font of even width has its own advances";
}

TEST_F(PostScriptPagesTest, AFontIsThereOnceWhateverPagesThereAre) {
    const std::string text = written("a\fb\fc");
    EXPECT_EQ(count_of("%%BeginResource: font AAAAAA+LiberationMono", text), 1U);
    EXPECT_EQ(count_of("\n%%Page: ", text), 3U);
    EXPECT_NE(text.find("\n%%Pages: 3\n"), std::string::npos);
}

TEST_F(PostScriptPagesTest, SaysWhatItsLettersMean) {
    const std::string text = written("\u0142A");
    EXPECT_NE(text.find("/c65 <0041>"), std::string::npos);
    EXPECT_NE(text.find("/c128 <0142>"), std::string::npos) << text;
    EXPECT_NE(text.find("(\\200A)"), std::string::npos);
}

TEST_F(PostScriptPagesTest, ItsTitleIsNoPostScript) {
    const std::string text = written("a");
    EXPECT_NE(text.find("%%Title: Gr??e (1)\n"), std::string::npos);
    EXPECT_NE(text.find("/Title <FEFF0047007200F600DF00650020002800310029>"), std::string::npos) << text;
}

TEST_F(PostScriptPagesTest, MoreLettersThanAFontHasTakeAnother) {
    std::string letters;
    for (char32_t letter = 0x100; letter < 0x250; ++letter) {
        letters += static_cast<char>(0xC0U | letter >> 6U);
        letters += static_cast<char>(0x80U | (letter & 0x3FU));
    }
    EXPECT_GE(count_of("%%BeginResource: font ", written(letters)), 2U);
}

TEST_F(PostScriptPagesTest, LettersOfOtherFilesThanTrueTypeAreDrawn) {
    Shaper drawn_letters({"C059", 8});
    PostScriptPages writer({300, 400}, {.title = "", .creator = "Test"}, "en-US");
    TextPages pages("a fi", drawn_letters, {}, {30, 200, {20, 100}, {20, 100}});
    writer.start_page();
    pages.draw(1, writer);
    const std::string text = writer.finished();
    EXPECT_EQ(count_of("/FontName /AAAAAA+C059-Roman def", text), 1U);
    EXPECT_EQ(count_of("/FontType 1 def", text), 1U);
    EXPECT_EQ(count_of("/c97 <0061>\n", text), 1U);
    EXPECT_EQ(count_of("/uni00660069.c128 put\n", text), 1U) << "for several letters a drawn one has a name";
    EXPECT_EQ(count_of(" foliantS\n", text), 1U) << text;
}

}  // namespace
}  // namespace foliant::hosts::pages
