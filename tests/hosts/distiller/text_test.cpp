#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

/// Text stays text: it can be searched and copied after any number of rounds.
class TextOfPdf : public DistillerTest {
  protected:
    /// Ligatures may come as the characters of their own that Unicode has for them; a search finds both.
    bool says(const std::string& words) const {
        constexpr std::string_view ligature = "\xEF\xAC\x81";
        std::string text = text_of_output();
        for (auto at = text.find(ligature); at != std::string::npos; at = text.find(ligature)) {
            text.replace(at, ligature.size(), "fi");
        }
        return text.find(words) != std::string::npos;
    }
};

TEST_F(TextOfPdf, KeepsAccentsAndLigaturesOfType1Fonts) {
    const auto result = distill_text(
        "%!\n/Times-Roman findfont dup length dict copy begin /Encoding ISOLatin1Encoding 256 array copy "
        "def\n"
        "Encoding 1 /fi put Encoding 2 /Euro put /Latin currentdict definefont pop end\n"
        "/Latin findfont 20 scalefont setfont 72 700 moveto (caf\\351 na\\357ve \\334ber of\\001ce 5 \\002) "
        "show showpage\n");
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_TRUE(
        says("caf\xC3\xA9 na\xC3\xAFve \xC3\x9C"
             "ber office 5 \xE2\x82\xAC"))
        << text_of_output();
}

TEST_F(TextOfPdf, KeepsAccentsAndLigaturesOfTrueTypeFonts) {
    const auto result = distill_text(
        "%!\n/DejaVuSans findfont dup length dict copy begin /Encoding ISOLatin1Encoding 256 array copy def\n"
        "Encoding 1 /fi put /Sans currentdict definefont pop end\n"
        "/Sans findfont 20 scalefont setfont 72 700 moveto (caf\\351 \\334ber of\\001ce) show showpage\n");
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_TRUE(
        says("caf\xC3\xA9 \xC3\x9C"
             "ber office"))
        << text_of_output();
    EXPECT_NE(output_of("pdffonts '" + output.string() + "'").find("TrueType"), std::string::npos);
}

/// A page in three scripts, more than fits into one subset of a font.
std::string page_of_many_letters(const std::string& czech) {
    return "%!\n/S { /DejaVuSans findfont dup length dict copy begin\n"
           "  /Encoding exch def /Part currentdict definefont pop end /Part findfont 20 scalefont setfont } "
           "def\n"
           "ISOLatin1Encoding 256 array copy dup 1 /fi put S 72 700 moveto (caf\\351 \\334ber of\\001ce) "
           "show\n"
           "[ /.notdef " +
           czech +
           " ] S 72 600 moveto <0102030405> show\n"
           "[ /.notdef /Xi /epsilon /nu /alpha ] S 72 500 moveto <01020304> show\n"
           "/Times-Italic findfont 20 scalefont setfont 72 400 moveto (in italics) show showpage\n";
}

class TextThroughCairo : public TextOfPdf {
  protected:
    std::filesystem::path cairo_postscript(const std::string& name, const std::string& czech) {
        const auto result = distill_text(page_of_many_letters(czech));
        EXPECT_TRUE(result.succeeded) << result.error;
        const auto path = folder / name;
        output_of("pdftocairo -ps '" + output.string() + "' '" + path.string() + "'");
        return path;
    }
    void expect_words(const std::string& czech) const {
        EXPECT_TRUE(
            says("caf\xC3\xA9 \xC3\x9C"
                 "ber office"))
            << text_of_output();
        EXPECT_TRUE(says(czech)) << text_of_output();
        EXPECT_TRUE(says("\xCE\x9E\xCE\xB5\xCE\xBD\xCE\xB1")) << text_of_output();
        EXPECT_TRUE(says("in italics")) << text_of_output();
        EXPECT_EQ(output_of("pdffonts '" + output.string() + "'").find("Type 3"), std::string::npos)
            << "characters have become pictures";
    }
};

TEST_F(TextThroughCairo, IsAllThereAfterAnotherRound) {
    const auto result = distill(cairo_postscript("again.ps", "/rcaron /ccaron /ecaron /zcaron /ncaron"));
    ASSERT_TRUE(result.succeeded) << result.error;
    expect_words("\xC5\x99\xC4\x8D\xC4\x9B\xC5\xBE\xC5\x88");
    EXPECT_EQ(output_of("pdffonts '" + output.string() + "'").find("AAAA"), std::string::npos)
        << "our own tags do not reach the PDF";
}

TEST_F(TextThroughCairo, IsAllThereWhenFilesHaveDifferentPartsOfOneFont) {
    const auto a = cairo_postscript("a.ps", "/rcaron /ccaron /ecaron /zcaron /ncaron");
    const auto b = cairo_postscript("b.ps", "/dcaron /tcaron /rcaron /Lslash /lslash");
    const auto result = distill_driver({a.string(), b.string()});
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(result.pages, 2);
    expect_words("\xC5\x99\xC4\x8D\xC4\x9B\xC5\xBE\xC5\x88");
    expect_words("\xC4\x8F\xC5\xA5\xC5\x99\xC5\x81\xC5\x82");
}

}  // namespace
}  // namespace foliant::hosts::distiller
