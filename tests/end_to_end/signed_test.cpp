// Files that were really signed, and certified, by a key that is made for them.

#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

class SignedPdf : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Acrobat");
        if (shop.run({"sh", "-c", "command -v openssl certutil"}).exit_code != 0)
            GTEST_SKIP() << "Install the packages openssl and libnss3-tools.";
        const Finished made = shop.run({"python3", MAKE_CERTIFIED, "."});
        ASSERT_EQ(made.exit_code, 0) << made.errors;
    }
    /// Whether the bytes that were signed are those of the file still, and all of them.
    std::string signature(const std::string& file) const {
        const std::string said = shop.run({"pdfsig", "-nssdir", "sql:keys", file}).output;
        if (said.find("Signature is Valid") == std::string::npos) return "broken";
        return said.find("Not total document signed") == std::string::npos ? "all" : "beginning";
    }

    /// What is told by a call that does its work and ends with 7.
    std::string told_by(const std::vector<std::string>& words) const {
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 7) << call.errors;
        return call.errors;
    }

    std::string first_bytes_of(const std::string& file) const {
        return " What was signed are the first " + std::to_string(shop.read(file).size()) +
               " bytes of the file.\n";
    }
};

TEST_F(SignedPdf, ThatIsCertifiedIsMarkedBehindWhatWasCertifiedAndSaidNotToBeItAnyMore) {
    const std::string before = shop.read("certified1.pdf");
    const std::string bytes = first_bytes_of("certified1.pdf");
    EXPECT_EQ(
        told_by({"CreateBookmarkInPDF", "certified1.pdf", "agreement"}),
        "foliant: The certification of certified1.pdf does not hold any more: it allows no changes." + bytes);
    EXPECT_TRUE(shop.read("certified1.pdf").starts_with(before));
    EXPECT_EQ(signature("certified1.pdf"), "beginning");
}

TEST_F(SignedPdf, ThatIsCertifiedSaysWhichChangesItAllows) {
    const std::string forms = first_bytes_of("certified2.pdf");
    EXPECT_EQ(
        told_by({"CreateBookmarksInPDF", "certified2.pdf", "agreement", "terms"}),
        "foliant: The certification of certified2.pdf does not hold any more: it allows only that forms are "
        "filled in and signed." +
            forms);
    const std::string comments = first_bytes_of("certified3.pdf");
    EXPECT_EQ(
        told_by({"CreateLinksInPDF", "certified3.pdf"}),
        "foliant: The certification of certified3.pdf does not hold any more: it allows only comments, and that "
        "forms are filled in and signed." +
            comments);
}

TEST_F(SignedPdf, ThatASignatureLocksIsSaidNotToHoldAnyMore) {
    const std::string bytes = first_bytes_of("locked.pdf");
    EXPECT_EQ(told_by({"CreateLinksInPDF", "locked.pdf"}),
              "foliant: A signature in locked.pdf does not hold any more: it allows no changes." + bytes);
    EXPECT_EQ(signature("locked.pdf"), "beginning");
}

TEST_F(SignedPdf, WhoseSignatureLocksFieldsOnlyTakesBookmarksAndLinks) {
    EXPECT_EQ(shop.foliant({"CreateBookmarkInPDF", "fields.pdf", "agreement"}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"CreateLinksInPDF", "fields.pdf"}).exit_code, 0);
    EXPECT_EQ(signature("fields.pdf"), "beginning");
}

TEST_F(SignedPdf, InWhichNothingIsFoundStaysAsItIs) {
    const std::string before = shop.read("certified1.pdf");
    const Finished call = shop.foliant({"CreateBookmarksInPDF", "certified1.pdf", "nowhere"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.read("certified1.pdf"), before);
    EXPECT_EQ(signature("certified1.pdf"), "all");
}

TEST_F(SignedPdf, ThatIsCertifiedLosesThatByAPassword) {
    EXPECT_EQ(
        told_by({"SetOpenPassword", "certified2.pdf", "--open-password", "sesame"}),
        "foliant: The certification of certified2.pdf does not hold any more: all of the file had to be "
        "written anew. Have it certified again.\n");
    const Finished pdf = shop.run({"qpdf", "--password=sesame", "--qdf", "certified2.pdf", "-"});
    EXPECT_EQ(pdf.output.find("/Perms"), std::string::npos);
}

TEST_F(SignedPdf, WithRightsInAdobeReaderLosesThem) {
    EXPECT_EQ(told_by({"CreateLinksInPDF", "rights.pdf"}),
              "foliant: The rights that rights.pdf gave to users of Adobe Reader are gone: they hold for the "
              "unchanged file only.\n");
    const Finished pdf = shop.run({"qpdf", "--qdf", "--object-streams=disable", "rights.pdf", "-"});
    EXPECT_EQ(pdf.output.find("/UR3 7 0 R"), std::string::npos);
}

TEST_F(SignedPdf, ThatIsCertifiedIsMergedAndTheCopySaidNotToBe) {
    EXPECT_EQ(told_by({"CreatePDFfromMultiPDF", "all.pdf", "certified1.pdf", "fields.pdf"}),
              "foliant: certified1.pdf is certified, the copy of its pages is not.\n");
    EXPECT_EQ(shop.pages("all.pdf"), 2);
    EXPECT_EQ(signature("certified1.pdf"), "all");
}

TEST_F(SignedPdf, ThatIsCertifiedAndTheFirstOfAFolderIsNotWhatIsMadeOfIt) {
    ASSERT_EQ(shop.run({"sh", "-c", "mkdir in && cp certified1.pdf fields.pdf in"}).exit_code, 0);
    EXPECT_EQ(
        told_by({"CreatePDFfromMultiPDFinDir", "all.pdf", "in"}),
        "foliant: all.pdf is not certified, as certified1.pdf is: a certification holds for the file that it "
        "was given to.\n");
    EXPECT_EQ(signature("in/certified1.pdf"), "all");
}

}  // namespace
}  // namespace foliant::end_to_end
