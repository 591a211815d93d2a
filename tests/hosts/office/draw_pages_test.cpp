#include "hosts/office/print/draw_pages.h"

#include <gtest/gtest.h>
#include <string>

#include "hosts/office/print/pdf_to_postscript.h"

namespace foliant::hosts::office {
namespace {

/// What is drawn of a page with that content, whose font /F1 is 500 thousandths wide in every letter.
std::string drawn(const std::string& content) {
    std::string widths;
    for (int i = 0; i < 95; ++i)
        widths += " 500";
    const std::string all = draw_pages(
        "%PDF-1.4\n"
        "1 0 obj <</Type/Catalog/Pages 2 0 R>> endobj\n"
        "2 0 obj <</Type/Pages/Kids[3 0 R]/Count 1>> endobj\n"
        "3 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Contents 4 0 R"
        "/Resources<</Font<</F1 5 0 R>>>>>> endobj\n"
        "4 0 obj <</Length " +
        std::to_string(content.size()) + ">> stream\n" + content +
        "\nendstream endobj\n"
        "5 0 obj <</Type/Font/Subtype/TrueType/BaseFont/Test/FirstChar 32/LastChar 126/Widths[" +
        widths +
        "]/FontDescriptor 6 0 R>> endobj\n"
        "6 0 obj <</Type/FontDescriptor/FontName/Test/Flags 32>> endobj\n"
        "trailer <</Root 1 0 R/Size 7>>\n%%EOF\n");
    constexpr std::string_view last_of_setup = "{} settransfer\n";
    const std::size_t begin = all.rfind(last_of_setup) + last_of_setup.size();
    return all.substr(begin, all.find("showpage", begin) - begin);
}

const std::string block = "q\n[1 0 0 1 0 0] Tm\n1 Tz\n";

TEST(DrawPages, ShowsPiecesOfALineAtOnceWithTheDistancesBetweenThem) {
    EXPECT_EQ(drawn("BT /F1 10 Tf 20 30 Td [(a) -100 (b) 50 (c)] TJ ET")
                  .find(block + "/F5_0 10 Tf\n0 setgray\n(abc)[\n6 4.5 5 ] 20 30 foliantX\nQ\n"),
              0U);
}

TEST(DrawPages, HasPlainTextInAnyColorAndSizeInOneBlock) {
    const std::string made =
        drawn("q 1 0 0 rg BT /F1 10 Tf 20 30 Td (a) Tj ET Q q BT /F1 8 Tf 20 40 Td (b) Tj ET Q");
    EXPECT_EQ(made.find(block + "/F5_0 10 Tf\n1 0 0 setrgbcolor\n(a)[\n5 ] 20 30 foliantX\n"
                                "/F5_0 8 Tf\n0 setgray\n(b)[\n4 ] 20 40 foliantX\nQ\n"),
              0U)
        << made;
    EXPECT_EQ(made.find(" sc\n"), std::string::npos) << "a colour that nothing is drawn in";
}

TEST(DrawPages, SetsTheStateForWhatIsDrawnBehindText) {
    const std::string made = drawn("1 0 0 RG 3 w q 0 1 0 RG BT /F1 10 Tf 20 30 Td (a) Tj ET Q 0 0 m 9 9 l S");
    const std::size_t line = made.find("0 0 m\n");
    ASSERT_NE(line, std::string::npos);
    EXPECT_LT(made.find("[1 0 0] SC"), line);
    EXPECT_LT(made.find("3 w"), line);
    EXPECT_LT(made.find("foliantX\nQ\n"), line);
    EXPECT_EQ(made.find("[0 1 0] SC"), std::string::npos) << made;
}

TEST(DrawPages, RestoresWhatWasSavedBeforeSomethingWasDrawn) {
    const std::string made = drawn("q 5 w 0 0 m 9 9 l S Q 0 9 m 9 0 l S");
    EXPECT_LT(made.find("q\n"), made.find("5 w"));
    EXPECT_LT(made.find("5 w"), made.find("Q\n"));
    EXPECT_LT(made.find("Q\n"), made.find("0 9 m"));
}

TEST(DrawPages, LeavesTurnedAndOutlinedTextToPoppler) {
    for (const char* how : {"0 1 -1 0 20 30 Tm", "1 Tr 20 30 Td", "50 Tz 20 30 Td"}) {
        const std::string made = drawn(std::string("BT /F1 10 Tf ") + how + " (a) Tj ET");
        EXPECT_EQ(made.find("foliant"), std::string::npos) << made;
        EXPECT_NE(made.find("20 30 moveto\n(a)\n["), std::string::npos) << made;
        EXPECT_NE(made.find("] Tj\n"), std::string::npos) << made;
    }
}

TEST(DrawPages, WritesLettersThatMeanSomethingInPostScript) {
    EXPECT_NE(drawn("BT /F1 10 Tf 20 30 Td (\\(\\)\\\\%\\344) Tj ET").find("(\\(\\)\\\\%\\344)["),
              std::string::npos);
}

}  // namespace
}  // namespace foliant::hosts::office
