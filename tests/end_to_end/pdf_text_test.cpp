#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

/// Pages of text, which Ghostscript sets in a font of its own.
const std::string postscript = R"(%!PS
/Times-Roman findfont 12 scalefont setfont
72 700 moveto (The first line of an exam-) show
72 686 moveto (ple, see http://www.example.org/some/) show
72 672 moveto (path.html for more.) show
showpage
72 700 moveto (The second page) show
showpage
)";

class PdfText : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Acrobat");
        shop.write("a.ps", postscript);
        ASSERT_EQ(shop.run({"ps2pdf", "a.ps", "a.pdf"}).exit_code, 0);
    }

    Finished find(std::vector<std::string> words) {
        words.insert(words.begin(), "FindTextInPDF");
        return shop.foliant(words);
    }
};

TEST_F(PdfText, GoesToATextFileLineByLine) {
    const Finished call = shop.foliant({"CreateTextfileFromPDF", "a.pdf", "a.txt"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.read("a.txt"),
              "The first line of an example,\r\n"
              "see http://www.example.org/some/\r\n"
              "path.html for more.\r\n"
              "\r\n"
              "The second page\r\n"
              "\r\n");
}

/// What other engines write: LibreOffice, and cairo, each with fonts of its own making.
TEST_F(PdfText, OfOtherEnginesIsReadAndFound) {
    shop.write("b.fodt", R"(<?xml version="1.0" encoding="UTF-8"?><office:document
xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
office:mimetype="application/vnd.oasis.opendocument.text"><office:body><office:text>
<text:p>An affluent office, naïve café</text:p><text:p>шесть слов</text:p></office:text></office:body></office:document>)");
    shop.run({"soffice", "-env:UserInstallation=file://" + shop.path("profile").string(), "--headless",
              "--convert-to", "pdf", "b.fodt"});
    ASSERT_EQ(shop.run({"pdftocairo", "-pdf", "b.pdf", "c.pdf"}).exit_code, 0);
    for (const std::string file : {"b.pdf", "c.pdf"}) {
        const Finished call = shop.foliant({"CreateTextfileFromPDF", file, "b.txt"});
        EXPECT_EQ(call.exit_code, 0) << call.errors;
        EXPECT_EQ(shop.read("b.txt"), "An affluent office, naïve café\r\nшесть слов\r\n\r\n") << file;
        EXPECT_EQ(find({file, "OFFICE, naive"}).exit_code, 1) << file;
        EXPECT_EQ(find({file, "OFFICE, naïve"}).exit_code, 0) << file;
    }
}

TEST_F(PdfText, TakesThePlaceOfATextFileThatIsThere) {
    shop.write("a.txt", "something else");
    EXPECT_EQ(shop.foliant({"CreateTextfileFromPDF", "a.pdf", "a.txt"}).exit_code, 0);
    EXPECT_EQ(shop.read("a.txt").substr(0, 14), "The first line");
}

TEST_F(PdfText, LeavesATextFileThatIsThereWhereThePdfIsNone) {
    shop.write("a.txt", "something else");
    EXPECT_EQ(shop.foliant({"CreateTextfileFromPDF", "a.ps", "a.txt"}).exit_code, 5);
    EXPECT_EQ(shop.read("a.txt"), "something else");
}

TEST_F(PdfText, LeavesNoTextFileWhereThePdfIsNone) {
    EXPECT_EQ(shop.foliant({"CreateTextfileFromPDF", "a.ps", "a.txt"}).exit_code, 5);
    EXPECT_FALSE(shop.files().contains("a.txt"));
}

TEST_F(PdfText, ThatIsFoundIsPrintedWithItsPlace) {
    const Finished call = find({"a.pdf", "second PAGE"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_TRUE(call.output.starts_with("page 2 (9")) << call.output;
    EXPECT_TRUE(call.output.ends_with("): The second page\n")) << call.output;
}

TEST_F(PdfText, IsFoundAcrossALineEnd) {
    EXPECT_EQ(find({"a.pdf", "example, see"}).exit_code, 0);
}

TEST_F(PdfText, ThatIsNotThereEndsWithOne) {
    const Finished call = find({"a.pdf", "third"});
    EXPECT_EQ(call.exit_code, 1);
    EXPECT_EQ(call.output, "");
    EXPECT_EQ(find({"a.pdf", "second PAGE", "--case-sensitive"}).exit_code, 1);
    EXPECT_EQ(find({"a.pdf", "econd", "--whole-words-only"}).exit_code, 1);
}

TEST_F(PdfText, ThatCannotBeReadDoesNotEndWithOne) {
    EXPECT_EQ(find({"a.ps", "page"}).exit_code, 5);
    EXPECT_EQ(find({"none.pdf", "page"}).exit_code, 3);
}

TEST_F(PdfText, IsReportedInJsonWithEveryPlace) {
    const Finished call = find({"--json", "a.pdf", "the"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    std::size_t places = 0;
    for (std::size_t at = call.output.find("\"rectangle\""); at != std::string::npos;
         at = call.output.find("\"rectangle\"", at + 1))
        ++places;
    EXPECT_EQ(places, 2U) << call.output;
}

TEST_F(PdfText, GetsBookmarksWhereItIsFound) {
    const Finished call = shop.foliant({"CreateBookmarkInPDF", "a.pdf", "second page"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.run({"qpdf", "--check", "a.pdf"}).exit_code, 0);
    const Finished outline = shop.run({"qpdf", "--json", "--json-key=outlines", "a.pdf"});
    for (const char* entry : {R"("title": "second page")", R"("/XYZ")", R"("destpageposfrom1": 2)"})
        EXPECT_NE(outline.output.find(entry), std::string::npos) << entry << " in " << outline.output;
}

TEST_F(PdfText, GetsNoBookmarkWhereItIsNot) {
    const std::string before = shop.read("a.pdf");
    EXPECT_EQ(shop.foliant({"CreateBookmarkInPDF", "a.pdf", "third page"}).exit_code, 0);
    EXPECT_EQ(shop.read("a.pdf"), before);
}

TEST_F(PdfText, GetsLinksOnItsAddresses) {
    const Finished call = shop.foliant({"CreateLinksInPDF", "a.pdf"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.run({"qpdf", "--check", "a.pdf"}).exit_code, 0);
    const std::string pdf = shop.run({"qpdf", "--qdf", "--object-streams=disable", "a.pdf", "-"}).output;
    EXPECT_NE(pdf.find("(http://www.example.org/some/path.html)"), std::string::npos);
}

TEST_F(PdfText, OfAProtectedFileIsMarkedForWhoKnowsTheOwnersPassword) {
    ASSERT_EQ(shop.run({"qpdf", "--encrypt", "", "owner", "256", "--modify=none", "--extract=n", "--",
                        "a.pdf", "b.pdf"})
                  .exit_code,
              0);
    const std::string before = shop.read("b.pdf");
    const std::string why =
        ": whoever protected it allows that only with the owner's password. Give that to open it.\n";
    const Finished mark = shop.foliant({"CreateBookmarkInPDF", "b.pdf", "second"});
    EXPECT_EQ(mark.exit_code, 5);
    EXPECT_EQ(mark.errors, "foliant: Can't open fileb.pdf.\n  b.pdf may get no bookmarks" + why);
    const Finished text = shop.foliant({"CreateTextfileFromPDF", "b.pdf", "b.txt"});
    EXPECT_EQ(text.exit_code, 5);
    EXPECT_EQ(text.errors, "foliant: b.pdf may not be copied from, so its text is not written" + why);
    EXPECT_EQ(shop.read("b.pdf"), before);
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"CreateBookmarkInPDF", "b.pdf", "second"},
          {"CreateLinksInPDF", "b.pdf"},
          {"CreateTextfileFromPDF", "b.pdf", "b.txt"}}) {
        std::vector<std::string> all = words;
        all.insert(all.end(), {"--open-password", "owner"});
        EXPECT_EQ(shop.foliant(all).exit_code, 0) << words.front();
    }
}

TEST_F(PdfText, IsReadAndChangedWhateverStandardStreamsAreClosed) {
    const auto call = [&](const std::string& words) {
        return shop.run({"sh", "-c", FOLIANT_COMMAND " " + words});
    };
    for (const char* closed : {"<&-", "2>&-", "<&- 2>&-"}) {
        EXPECT_EQ(call(std::string("GetNumPagesPDF a.pdf ") + closed).output, "2\n") << closed;
        EXPECT_EQ(call(std::string("FindTextInPDF a.pdf page ") + closed).exit_code, 0) << closed;
    }
    const Finished unwritten = call("GetNumPagesPDF a.pdf >&-");
    EXPECT_EQ(unwritten.exit_code, 1);
    EXPECT_EQ(unwritten.errors, "foliant: the result could not be written to standard output\n");
    EXPECT_EQ(call("CreateTextfileFromPDF a.pdf a.txt <&- >&- 2>&-").exit_code, 0);
    EXPECT_NE(shop.read("a.txt").find("The second page"), std::string::npos);
}

/// With a signature of a key that is made for it.
TEST_F(PdfText, IsMarkedWithoutHarmToASignature) {
    const bool can_sign =
        shop.run(
                {"sh", "-c",
                 "mkdir keys && certutil -d sql:keys -N --empty-password && certutil -d sql:keys -S -n signer -s "
                 "CN=Signer -x -t C,C,C -z a.pdf -k rsa -g 2048 -Z SHA256"})
            .exit_code == 0;
    if (!can_sign) GTEST_SKIP() << "certutil is not installed. Install the package libnss3-tools.";
    shop.run({"pdfsig", "-nssdir", "sql:keys", "-add-signature", "-nick", "signer", "a.pdf", "signed.pdf"});
    const auto signature = [&] { return shop.run({"pdfsig", "-nssdir", "sql:keys", "signed.pdf"}).output; };
    ASSERT_NE(signature().find("Signature is Valid"), std::string::npos) << signature();
    EXPECT_EQ(shop.foliant({"CreateBookmarkInPDF", "signed.pdf", "second"}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"CreateLinksInPDF", "signed.pdf"}).exit_code, 0);
    EXPECT_NE(signature().find("Signature is Valid"), std::string::npos) << signature();
    const Finished locked = shop.foliant({"SetOpenPassword", "signed.pdf", "--open-password", "sesame"});
    EXPECT_EQ(locked.exit_code, 7);
    EXPECT_EQ(locked.errors,
              "foliant: The signatures in signed.pdf do not hold any more: all of the file had to be "
              "written anew. Sign it again.\n");
}

}  // namespace
}  // namespace foliant::end_to_end
