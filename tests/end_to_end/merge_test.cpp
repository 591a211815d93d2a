#include <gtest/gtest.h>

#include "end_to_end/command.h"

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

class WithAcrobat : public testing::Test {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat"); }
    void TearDown() override { EXPECT_TRUE(IsSkipped() || shop.is_clean_soon()) << shop.leftovers(); }

    void expect_success(const std::vector<std::string>& words) const {
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 0) << call.errors;
    }
    void expect_sound(const std::string& pdf, const std::string& password = "") const {
        const Finished check = shop.run({"qpdf", "--password=" + password, "--check", pdf});
        EXPECT_EQ(check.exit_code, 0) << check.output << check.errors;
    }

    Workshop shop;
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
