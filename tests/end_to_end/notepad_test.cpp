#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

class TextThroughNotepad : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Notepad");
        shop.write("my notes.txt", "Größe, naïve café\r\nsecond line\r\n\fsecond page\r\n");
    }
};

TEST_F(TextThroughNotepad, BecomesAPdfOfText) {
    const Finished call =
        shop.foliant({"CreatePDFfromTextFile3", "notes.pdf", "my notes.txt", "--close-acrobat"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("notes.pdf"), 2);
    const std::string text = shop.text("notes.pdf");
    for (const char* words : {"my notes.txt", "Größe, naïve café", "second line", "second page", "Page 2"})
        EXPECT_NE(text.find(words), std::string::npos) << text;
    EXPECT_EQ(shop.files(), (std::set<std::string>{"my notes.txt", "notes.pdf"}));
}

TEST_F(TextThroughNotepad, IsReadInTheLocalesLanguage) {
    shop.write("ansi.txt", "\xCC\xEE\xF1\xEA\xE2\xE0\r\n");
    const Finished call = shop.run(
        {"env", "LC_ALL=ru_RU.UTF-8", FOLIANT_COMMAND, "CreatePDFfromTextFile3", "ansi.pdf", "ansi.txt"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_NE(shop.text("ansi.pdf").find("Москва"), std::string::npos);
    EXPECT_TRUE(shop.page_size("ansi.pdf").starts_with("595.")) << "A4, as printers have it there";
}

TEST_F(TextThroughNotepad, ThatIsNoneFailsAndLeavesTheOldPdf) {
    std::string noise;
    for (int i = 0; i < 4096; ++i)
        noise += static_cast<char>(i * 7);
    shop.write("noise.txt", noise);
    shop.write("notes.pdf", "%PDF-1.4 the one before");
    const Finished call = shop.foliant({"CreatePDFfromTextFile3", "notes.pdf", "noise.txt"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_NE(call.errors.find("noise.txt holds no text"), std::string::npos) << call.errors;
    EXPECT_EQ(shop.read("notes.pdf"), "%PDF-1.4 the one before");
}

}  // namespace
}  // namespace foliant::end_to_end
