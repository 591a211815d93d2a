#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/print/flattening.h"
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
           "3 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Contents 4 0 R"
           "/Resources<</Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>>>>> endobj\n"
           "4 0 obj <</Length " +
           std::to_string(content.size()) + ">> stream\n" + content +
           "\nendstream endobj\n"
           "trailer <</Root 1 0 R/Size 5>>\n%%EOF\n";
}

TEST(PostScript, HasTheUsualMiterLimitWhereOneIsBeyondAllNumbers) {
    EXPECT_TRUE(has_line(pdf_to_postscript(page_with("-92233720368547758.08 M"), "title"), "10 M"));
    EXPECT_TRUE(has_line(pdf_to_postscript(page_with("3 M"), "title"), "3 M"));
}

TEST(Flattening, IsMendedWhereItLosesText) {
    const tests::ScratchFolder folder;
    const std::string original = page_with("BT /F 9 Tf 20 100 Td (Found again) Tj ET");
    const std::string mended = with_flattening_mended(page_with(""), original);
    folder.write("mended.pdf", mended);
    EXPECT_EQ(test::PdfReader(folder / "mended.pdf").text(1), "Found again");
}

TEST(Flattening, IsMendedWhereAPageComesToLookOtherwise) {
    const std::string original = page_with("0.9 0 0 rg 20 20 100 100 re f");
    const std::string mended = with_flattening_mended(page_with(""), original);
    EXPECT_NE(mended.find("/FoliantPage Do"), std::string::npos);
    EXPECT_NE(mended.find("/Width 834 "), std::string::npos) << "200 points at 300 dots an inch";
}

TEST(Flattening, StaysAsItIsWhereNothingIsLost) {
    const std::string original = page_with("/None gs 0.9 0 0 rg 20 20 100 100 re f");
    const std::string flattened = page_with("0.9 0.01 0 rg 20 20 100 100 re f BT /F 9 Tf (More) Tj ET");
    EXPECT_EQ(with_flattening_mended(flattened, original), flattened);
}

/// A document of two pages: an outline whose first item is folded, and a link to a hostile address on the
/// first page.
std::string document_with_marks() {
    return "%PDF-1.4\n"
           "1 0 obj <</Type/Catalog/Pages 2 0 R/Outlines 5 0 R/Lang(de\\) quit)>> endobj\n"
           "2 0 obj <</Type/Pages/Kids[3 0 R 4 0 R]/Count 2>> endobj\n"
           "3 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Annots[9 0 R 10 0 R 11 0 R]>> endobj\n"
           "4 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 300 200]>> endobj\n"
           "5 0 obj <</Type/Outlines/First 6 0 R/Last 8 0 R/Count 2>> endobj\n"
           "6 0 obj <</Title(A \\) quit)/Parent 5 0 R/Next 8 0 R/First 7 0 R/Last 7 0 R/Count -1"
           "/Dest[3 0 R/XYZ 10 190 null]>> endobj\n"
           "7 0 obj <</Title(B)/Parent 6 0 R/Dest[4 0 R/Fit]>> endobj\n"
           "8 0 obj <</Title(C)/Parent 5 0 R/Prev 6 0 R/Dest[4 0 R/quit]>> endobj\n"
           "9 0 obj <</Type/Annot/Subtype/Link/Rect[1 2 3 4.5]/A<</S/URI/URI(a:\\)> quit)>>>> endobj\n"
           "10 0 obj <</Type/Annot/Subtype/Link/Rect[5 6 7 8]/Dest[4 0 R/XYZ 0 0 0]>> endobj\n"
           "11 0 obj <</Type/Annot/Subtype/Link/Rect[5 6 7 /quit]/Dest[4 0 R/Fit]>> endobj\n"
           "12 0 obj <</Author(J\xF6rg)>> endobj\n"
           "trailer <</Root 1 0 R/Info 12 0 R/Size 13>>\n%%EOF\n";
}

/// The lines that end in "pdfmark", without the definition of what it is where there is none.
std::string marks_in(const std::string& postscript) {
    std::istringstream lines(postscript);
    std::string marks;
    for (std::string line; std::getline(lines, line);)
        if (line.ends_with(" pdfmark") || line.starts_with("%%Page:")) marks += line + "\n";
    return marks;
}

TEST(PostScript, HasMarksForInformationOutlineAndLinks) {
    EXPECT_EQ(marks_in(pdf_to_postscript(document_with_marks(), "plan")),
              "[ /Author <4af67267> /Title <feff0070006c0061006e> /DOCINFO pdfmark\n"
              "[ {Catalog} << /Lang <6465292071756974> >> /PUT pdfmark\n"
              "[ /Title <4120292071756974> /Page foliantPagesBefore 1 add /View [/XYZ 10 190 null ] /Count -1"
              " /OUT pdfmark\n"
              "[ /Title <42> /Page foliantPagesBefore 2 add /View [/Fit ] /OUT pdfmark\n"
              "[ /Title <43> /OUT pdfmark\n"
              "%%Page: 1 1\n"
              "[ /Rect [ 1 2 3 4.5 ] /Action << /Subtype /URI /URI <613a293e2071756974> >> /Subtype /Link"
              " /ANN pdfmark\n"
              "[ /Rect [ 5 6 7 8 ] /Page foliantPagesBefore 2 add /View [/XYZ 0 0 0 ] /Subtype /Link"
              " /ANN pdfmark\n"
              "%%Page: 2 2\n");
}

TEST(PostScript, PassesOverItsMarksWhereTheyAreUnknown) {
    const tests::ScratchFolder folder;
    folder.write("marks.ps", pdf_to_postscript(document_with_marks(), "plan"));
    const std::string log = (folder / "log").string();
    const std::string command = "gs -q -dBATCH -dNOPAUSE -sDEVICE=nullpage -c '/pdfmark where =' -f " +
                                (folder / "marks.ps").string() + " -c 'userdict /pdfmark known = count =' >" +
                                log + " 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(tests::read_file(log), "false\ntrue\n0\n");
}

TEST(PostScript, CannotBeMadeOfAnythingButPdf) {
    EXPECT_THROW(pdf_to_postscript("not a PDF", "title"), PostScriptFailure);
}

}  // namespace
}  // namespace foliant::hosts::office
