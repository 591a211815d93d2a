#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

/// A PDF with one page that shows a text; any reader mends that it has no table of its objects.
std::string page(const std::string& text) {
    const std::string content = "BT /F 20 Tf 50 100 Td (" + text + ") Tj ET";
    return "%PDF-1.4\n"
           "1 0 obj << /Type /Catalog /Pages 2 0 R >> endobj\n"
           "2 0 obj << /Type /Pages /Count 1 /Kids [3 0 R] >> endobj\n"
           "3 0 obj << /Type /Page /Parent 2 0 R /MediaBox [0 0 300 200] /Contents 4 0 R "
           "/Resources << /Font << /F 5 0 R >> >> >> endobj\n"
           "4 0 obj << /Length " +
           std::to_string(content.size()) + " >>\nstream\n" + content +
           "\nendstream endobj\n"
           "5 0 obj << /Type /Font /Subtype /Type1 /BaseFont /Helvetica >> endobj\n"
           "trailer << /Size 6 /Root 1 0 R >>\n%%EOF\n";
}

class WithAcrobat : public CommandTest {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat"); }

    void expect_sound(const std::string& pdf, const std::string& password = "") const {
        const Finished check = shop.run({"qpdf", "--password=" + password, "--check", pdf});
        EXPECT_EQ(check.exit_code, 0) << check.output << check.errors;
    }
};

class Merging : public WithAcrobat {};

TEST_F(Merging, JoinsFilesInTheirOrderAndPassesOverMissingOnes) {
    shop.write("b.pdf", page("beta"));
    shop.write("a.pdf", page("alpha"));
    expect_success({"CreatePDFfromMultiPDF", "all.pdf", "b.pdf", "a.pdf", "b.pdf"});
    EXPECT_EQ(shop.pages("all.pdf"), 3);
    const std::string text = shop.text("all.pdf");
    EXPECT_LT(text.find("beta"), text.find("alpha"));
    EXPECT_LT(text.find("alpha"), text.rfind("beta"));
    expect_sound("all.pdf");
}

TEST_F(Merging, JoinsTheFilesOfAFolder) {
    std::filesystem::create_directory(shop.path("in"));
    for (const char* name : {"1.pdf", "2.pdf", "3.pdf"})
        shop.write(std::string("in/") + name, page(name));
    expect_success({"CreatePDFfromMultiPDFinDir", "all.pdf", "in"});
    EXPECT_EQ(shop.pages("all.pdf"), 3);
    expect_sound("all.pdf");
}

TEST_F(Merging, FailsWithTheFileThatIsNoPdfAndLeavesNothing) {
    shop.write("a.pdf", page("alpha"));
    shop.write("b.pdf", "no PDF");
    const Finished call = shop.foliant({"CreatePDFfromMultiPDF", "all.pdf", "a.pdf", "b.pdf"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_EQ(call.errors, "foliant: b.pdf cannot be opened: it is no PDF file.\n");
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.pdf", "b.pdf"}));
}

TEST_F(Merging, SaysThatNoFileOfAFolderMatches) {
    std::filesystem::create_directory(shop.path("in"));
    shop.write("in/a.txt", "no PDF");
    const Finished call = shop.foliant({"CreatePDFfromMultiPDFinDir", "all.pdf", "in"});
    EXPECT_EQ(call.exit_code, 3);
    EXPECT_EQ(call.errors, "foliant: Nothing was done: in in, a file that matches *.pdf does not exist.\n");
    EXPECT_EQ(shop.foliant({"PrintPDFinDir", "in"}).exit_code, 3);
    EXPECT_EQ(shop.files(), std::set<std::string>{"in"});
}

class ConvertingImages : public WithAcrobat {
  protected:
    /// Two pixels.
    const std::string bitmap = std::string(
        "BM\x3E\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\x08\0\0\0"
        "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xFF\0\0\0\0\xFF\0\0",
        62);
};

TEST_F(ConvertingImages, OfAFileThatIsNoImageSaysWhatItIs) {
    shop.write("a.png", "Dear Sir");
    const Finished call = shop.foliant({"CreatePDFfromImageFile", "a.pdf", "a.png"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_EQ(call.errors,
              "foliant: The host program reported success, but a.pdf was not made.\n"
              "  a.png is no image that can be read: it is text.\n");
    EXPECT_EQ(shop.files(), std::set<std::string>{"a.png"});
}

TEST_F(ConvertingImages, OfAListWithoutAnImageSaysWhatEachIs) {
    shop.write("a.png", "Dear Sir");
    shop.write("b.png", "");
    const Finished call = shop.foliant({"CreatePDFfromMultiImage", "a.pdf", "a.png", "b.png", "a.png"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_EQ(call.errors,
              "foliant: Cannot keep a.pdf: it came out without pages, and was removed.\n"
              "  a.png is no image that can be read: it is text.\n  b.png cannot be opened: it is empty.\n");
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.png", "b.png"}));
}

TEST_F(ConvertingImages, OfAListLeavesOutWhatIsNoImageAndSaysSo) {
    shop.write("a.png", "Dear Sir");
    shop.write("b.bmp", bitmap);
    const Finished call = shop.foliant({"CreatePDFfromMultiImage", "a.pdf", "a.png", "b.bmp"});
    EXPECT_EQ(call.exit_code, 7);
    EXPECT_EQ(call.errors, "foliant: a.png is no image that can be read: it is text.\n");
    EXPECT_EQ(shop.pages("a.pdf"), 1);
}

class SettingAnOpenPassword : public WithAcrobat {};

TEST_F(SettingAnOpenPassword, ProtectsTheFileInPlace) {
    shop.write("a.pdf", page("secret words"));
    expect_success({"SetOpenPassword", "a.pdf", "geheim ß"});
    expect_sound("a.pdf", "geheim ß");
    EXPECT_EQ(shop.foliant({"GetNumPagesPDF", "a.pdf", "--open-password=geheim ß"}).output, "1\n");
    EXPECT_EQ(shop.foliant({"GetNumPagesPDF", "a.pdf"}).exit_code, 5);
    const Finished shown = shop.run({"qpdf", "--show-encryption", "--password=geheim ß", "a.pdf"});
    EXPECT_NE(shown.output.find("stream encryption method: AESv3"), std::string::npos) << shown.output;
}

TEST_F(SettingAnOpenPassword, LeavesAFileThatIsNoPdfAsItIs) {
    shop.write("a.pdf", "no PDF");
    const Finished call = shop.foliant({"SetOpenPassword", "a.pdf", "x"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_NE(call.errors.find("Can't open file a.pdf."), std::string::npos) << call.errors;
    EXPECT_EQ(shop.read("a.pdf"), "no PDF");
}

}  // namespace
}  // namespace foliant::end_to_end
