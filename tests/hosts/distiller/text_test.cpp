#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

/// Text stays text: it can be searched and copied after any number of rounds.
class TextOfPdf : public DistillerTest {
  protected:
    /// Ligatures may come as the characters of their own that Unicode has for them; a search finds both.
    bool says(const std::string& words) const {
        constexpr std::string_view kLigature = "\xEF\xAC\x81";
        std::string text = text_of_output();
        for (auto at = text.find(kLigature); at != std::string::npos; at = text.find(kLigature)) {
            text.replace(at, kLigature.size(), "fi");
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

TEST_F(TextOfPdf, SurvivesAnotherRoundThroughCairosPostScript) {
    ASSERT_TRUE(
        distill_text("%!\n/DejaVuSans findfont dup length dict copy begin /Encoding ISOLatin1Encoding 256 "
                     "array copy def\n"
                     "Encoding 1 /fi put /Sans currentdict definefont pop end\n"
                     "/Sans findfont 20 scalefont setfont 72 700 moveto (caf\\351 \\334ber of\\001ce) show\n"
                     "/Times-Italic findfont 20 scalefont setfont 72 600 moveto (in italics) show showpage\n")
            .succeeded);
    const auto again = folder / "again.ps";
    output_of("pdftocairo -ps '" + output.string() + "' '" + again.string() + "'");
    const auto result = distill(again);
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_TRUE(
        says("caf\xC3\xA9 \xC3\x9C"
             "ber office"))
        << text_of_output();
    EXPECT_TRUE(says("in italics")) << text_of_output();
}

}  // namespace
}  // namespace foliant::hosts::distiller
