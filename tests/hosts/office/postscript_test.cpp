#include <cstdlib>
#include <gtest/gtest.h>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/print/pdf_to_postscript.h"
#include "hosts/office/support.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

/// A document printed as PostScript, and that distilled by Ghostscript.
class Print {
  public:
    explicit Print(const std::filesystem::path& path, const std::string& pages = "", bool landscape = false) {
        const auto document = test::open(path);
        if (landscape) document->set_orientation(true);
        document->export_ps(pages, folder_ / "out.ps");
    }

    std::string postscript() const { return tests::read_file(folder_ / "out.ps"); }

    test::PdfReader distilled() const {
        const std::string folder = folder_.path().string();
        const std::string command = "gs -q -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -sOutputFile=" + folder +
                                    "/out.pdf " + folder + "/out.ps >" + folder + "/log 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << tests::read_file(folder_ / "log");
        EXPECT_EQ(tests::read_file(folder_ / "log"), "");
        return test::PdfReader(folder_ / "out.pdf");
    }

  private:
    tests::ScratchFolder folder_;
};

bool has_line(const std::string& text, const std::string& line) {
    return ("\n" + text).find("\n" + line + "\n") != std::string::npos;
}

TEST(PostScript, FollowsTheStructuringConventions) {
    const std::string text = Print(test::document("five.docx")).postscript();
    EXPECT_TRUE(text.starts_with("%!PS-Adobe-3.0\n"));
    EXPECT_TRUE(has_line(text, "%%Pages: 5"));
    EXPECT_TRUE(has_line(text, "%%LanguageLevel: 2"));
    EXPECT_TRUE(has_line(text, "%%Page: 5 5"));
    EXPECT_TRUE(has_line(text, "%%EOF"));
}

TEST(PostScript, IsTitledAfterTheDocument) {
    const Print print(test::document("five.docx"));
    EXPECT_TRUE(has_line(print.postscript(), "%%Title: five.docx"));
    EXPECT_EQ(print.distilled().title(), "five.docx");
}

TEST(PostScript, IsTitledInAnyScript) {
    const tests::ScratchFolder folder;
    const auto path = folder / "Łódź (1).docx";
    std::filesystem::copy(test::document("one.docx"), path);
    const Print print(path);
    EXPECT_TRUE(has_line(print.postscript(), "%%Title: ??d? (1).docx"));
    EXPECT_EQ(print.distilled().title(), "Łódź (1).docx");
}

TEST(PostScript, KeepsLigaturesAccentsAndEveryScript) {
    EXPECT_EQ(Print(test::document("text_mix.docx")).distilled().text(1),
              "efficient office flow, naïve café, Łódź, Žižkov, Ελλάδα, Москва / "
              "efficient office flow, naïve café, Łódź, Žižkov, Ελλάδα, Москва / "
              "efficient office flow, naïve café");
}

TEST(PostScript, KeepsTheSizeOfEveryPage) {
    const auto pdf = Print(test::document("sections.docx")).distilled();
    ASSERT_EQ(pdf.pages(), 3);
    EXPECT_EQ(pdf.size(1), "612 x 792");
    EXPECT_EQ(pdf.size(3), "792 x 612");
    EXPECT_EQ(pdf.text(3), "Second section, landscape.");
}

TEST(PostScript, KeepsTheOrientation) {
    const auto pdf = Print(test::document("margins.docx"), "", true).distilled();
    EXPECT_EQ(pdf.size(1), "792 x 612");
    EXPECT_NEAR(pdf.place(1, "Margins").left, 72, 1);
}

TEST(PostScript, PrintsThePagesOfTheRange) {
    const Print print(test::document("five.docx"), "4-,1");
    EXPECT_TRUE(has_line(print.postscript(), "%%Pages: 3"));
    EXPECT_EQ(print.distilled().text(3), "This is page number 1.");
}

TEST(PostScript, KeepsTextBesideATransparentPicture) {
    EXPECT_EQ(Print(test::document("picture.docx")).distilled().text(1), "Text above a fading picture.");
}

TEST(PostScript, CanBeMadeOfACommentBesideATransparentPicture) {
    EXPECT_EQ(Print(test::document("comment.odt")).distilled().pages(), 1);
}

/// A page with one line, before which that operator stands.
std::string page_with(const std::string& drawing) {
    const std::string content = drawing + "\n0 0 m 100 100 l S";
    return "%PDF-1.4\n"
           "1 0 obj <</Type/Catalog/Pages 2 0 R>> endobj\n"
           "2 0 obj <</Type/Pages/Kids[3 0 R]/Count 1>> endobj\n"
           "3 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Contents 4 0 R>> endobj\n"
           "4 0 obj <</Length " +
           std::to_string(content.size()) + ">> stream\n" + content +
           "\nendstream endobj\n"
           "trailer <</Root 1 0 R/Size 5>>\n%%EOF\n";
}

TEST(PostScript, HasTheUsualMiterLimitWhereOneIsBeyondAllNumbers) {
    EXPECT_TRUE(has_line(pdf_to_postscript(page_with("-92233720368547758.08 M"), "title"), "10 M"));
    EXPECT_TRUE(has_line(pdf_to_postscript(page_with("3 M"), "title"), "3 M"));
}

TEST(PostScript, CannotBeMadeOfAnythingButPdf) {
    EXPECT_THROW(pdf_to_postscript("not a PDF", "title"), PostScriptFailure);
}

}  // namespace
}  // namespace foliant::hosts::office
