#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

class TextToPdf : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Word");
        REQUIRE_HOST("Acrobat Distiller");
        shop.write("notes.txt", "Größe, naïve café\r\nsecond line\r\n\fsecond page\r\n");
    }

    void expect_the_notes(const std::string& pdf) {
        EXPECT_EQ(shop.pages(pdf), 2);
        const std::string text = shop.text(pdf);
        for (const char* words : {"Größe, naïve café", "second line", "second page"})
            EXPECT_NE(text.find(words), std::string::npos) << text;
    }
};

TEST_F(TextToPdf, ThroughPostScriptTheTextIsStillText) {
    expect_success({"CreatePDFfromTextFile", "notes.pdf", "notes.txt"});
    expect_the_notes("notes.pdf");
    EXPECT_EQ(shop.files(), (std::set<std::string>{"notes.pdf", "notes.txt"}));
}

TEST_F(TextToPdf, ThroughThePrinterEveryOptionShows) {
    expect_success({"CreatePDFfromTextFile2", "notes.pdf", "notes.txt", "--landscape", "--font",
                    "Liberation Serif", "--font-size", "12", "--font-color", "255", "--font-bold",
                    "--page-number-in-footer", "--first-page", "--left-margin", "72", "--close-acrobat"});
    expect_the_notes("notes.pdf");
    const std::string size = shop.page_size("notes.pdf");
    EXPECT_TRUE(size == "792 x 612" || size == "841.89 x 595.304") << size;
    EXPECT_NE(shop.run({"pdffonts", "notes.pdf"}).output.find("LiberationSerif-Bold"), std::string::npos);
}

TEST_F(TextToPdf, PostScriptAloneIsPostScript) {
    expect_success({"CreatePSfromTextFile", "notes.ps", "notes.txt"});
    EXPECT_TRUE(shop.read("notes.ps").starts_with("%!PS-Adobe-3.0"));
}

TEST_F(TextToPdf, AFontSizeThatNoFontHasIsAFailureAndLeavesNothing) {
    const Finished call =
        shop.foliant({"CreatePDFfromTextFile2", "notes.pdf", "notes.txt", "--font-size", "0"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_NE(call.errors.find("1 to 1638 points"), std::string::npos) << call.errors;
    EXPECT_EQ(shop.files(), (std::set<std::string>{"notes.txt"}));
}

}  // namespace
}  // namespace foliant::end_to_end
