#include <qpdf/Pl_String.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include "hosts/acrobat/fixture.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using test::PdfText;
using tests::failure;
using tests::Names;

class Printing : public AcrobatTest {
  protected:
    Value viewer_on(const std::string& content) {
        const Value viewer = new_viewer();
        EXPECT_EQ(viewer.call("Open", {write("report.pdf", content), ""}), Value(true));
        return viewer;
    }

    static Value print(const Value& viewer, std::int32_t first, std::int32_t last) {
        return viewer.call("PrintPagesSilent", {first, last, std::int16_t{2}, true, false});
    }

    /// What the pages of a PDF say, one after the other.
    static std::string contents(const std::string& file) {
        const auto pdf = QPDF::create();
        pdf->processMemoryFile("printed", file.data(), file.size());
        std::string all;
        for (QPDFPageObjectHelper page : QPDFPageDocumentHelper(*pdf).getAllPages()) {
            Pl_String text("text", nullptr, all);
            page.pipeContents(&text);
        }
        return all;
    }

    /// "1 2": the numbers of the pages of `pages` in it.
    static std::string page_numbers(const std::string& file) {
        const std::string all = contents(file);
        std::string numbers;
        for (std::size_t at = all.find("(page "); at != std::string::npos; at = all.find("(page ", at + 1))
            numbers += (numbers.empty() ? "" : " ") + all.substr(at + 6, all.find(')', at) - at - 6);
        return numbers;
    }
};

TEST_F(Printing, PagesGoToTheDefaultPrinterUnderTheDocumentsName) {
    machine.printer = "Office";
    EXPECT_EQ(print(viewer_on(pages(5).file()), 1, 3), Value(true));
    EXPECT_EQ(machine.notes, Names{"print report.pdf on Office"});
    EXPECT_EQ(page_numbers(machine.printed), "2 3 4");
    EXPECT_EQ(tests::names_in(machine.private_folder()), Names{});
}

TEST_F(Printing, TheDialogOfAPrintThatIsNotSilentCountsAsConfirmed) {
    machine.printer = "Office";
    const Value viewer = viewer_on(pages(2).file());
    EXPECT_EQ(viewer.call("PrintPages", {0, 0, std::int16_t{2}, true, false}), Value(true));
    EXPECT_EQ(machine.notes, Names{"print report.pdf on Office"});
    EXPECT_EQ(page_numbers(machine.printed), "1");
}

TEST_F(Printing, ThePdfPrinterAsksForItsFileAndShowsIt) {
    const std::string target = (folder / "printed.pdf").string();
    machine.answers = {target};
    EXPECT_EQ(print(viewer_on(pages(3).file()), 0, 2), Value(true));
    EXPECT_EQ(machine.notes, (Names{"dialog Save PDF File As", "window Adobe Acrobat - [printed.pdf]"}));
    EXPECT_EQ(page_numbers(tests::read_file(target)), "1 2 3");
}

TEST_F(Printing, ACancelledDialogLeavesNothing) {
    machine.answers = {"cancel"};
    const Value viewer = viewer_on(pages(1).file());
    EXPECT_EQ(
        failure([&] { print(viewer, 0, 0); }),
        "-2147467259 report.pdf was not printed: the dialog \"Save PDF File As\" was closed without a file "
        "name.");
    EXPECT_EQ(tests::names_in(folder.path()), Names{"report.pdf"});
}

TEST_F(Printing, AFolderThatIsMissingIsNamed) {
    const std::string target = (folder / "none" / "printed.pdf").string();
    machine.answers = {target};
    const Value viewer = viewer_on(pages(1).file());
    EXPECT_NE(failure([&] { print(viewer, 0, 0); }).find(target), std::string::npos);
}

TEST_F(Printing, PagesThatAreNotThereAreNotPrinted) {
    machine.printer = "Office";
    const Value viewer = viewer_on(pages(2).file());
    EXPECT_EQ(failure([&] { print(viewer, 0, 2); }),
              "5 From page 1 to page 3 of report.pdf cannot be printed: it has 2 pages.");
    EXPECT_EQ(failure([&] { print(viewer, 1, 0); }),
              "5 From page 2 to page 1 of report.pdf cannot be printed: it has 2 pages.");
    EXPECT_EQ(failure([&] { print(viewer, 6, 6); }),
              "5 Page 7 of report.pdf cannot be printed: it has 2 pages.");
    EXPECT_EQ(machine.notes, Names{});
}

TEST_F(Printing, AFileWithoutPagesIsNotPrinted) {
    machine.printer = "Office";
    const Value viewer = viewer_on(pages(0).file());
    EXPECT_EQ(failure([&] { print(viewer, 0, -1); }), "5 report.pdf cannot be printed: it has no pages.");
}

TEST_F(Printing, ShrinkingIsRefusedRatherThanForgotten) {
    const Value viewer = viewer_on(pages(1).file());
    EXPECT_EQ(failure([&] {
                  viewer.call("PrintPages", {0, 0, std::int16_t{2}, true, true});
              }),
              "445 Pages are printed in their own size. Give False for bShrinkToFit.");
}

TEST_F(Printing, OnlyAnnotationsThatAreForPaperArePrinted) {
    machine.printer = "Office";
    PdfText pdf = pages(1, "page", "/Annots [4 0 R 5 0 R]");
    const auto annotation = [](const std::string& flags, const std::string& appearance) {
        return "<< /Type /Annot /Subtype /Stamp /Rect [0 0 100 100] /F " + flags + " /AP << /N " +
               appearance + " 0 R >> >>";
    };
    pdf.set(4, annotation("4", "6")).set(5, annotation("0", "7"));
    const auto form = [](const std::string& size) {
        return "/Type /XObject /Subtype /Form /BBox [0 0 " + size + " " + size + "]";
    };
    pdf.set_stream(6, "", form("70")).set_stream(7, "", form("80"));
    print(viewer_on(pdf.file()), 0, 0);
    EXPECT_NE(machine.printed.find("/BBox [ 0 0 70 70 ]"), std::string::npos);
    EXPECT_EQ(machine.printed.find("/BBox [ 0 0 80 80 ]"), std::string::npos);
    EXPECT_EQ(machine.printed.find("/Annots"), std::string::npos);
}

TEST_F(Printing, LayersStayAsVisibleAsTheyAre) {
    machine.printer = "Office";
    PdfText pdf = pages(1);
    pdf.set(4, "<< /Type /OCG /Name (Draft) >>")
        .add_to_catalogue("/OCProperties << /OCGs [4 0 R] /D << /OFF [4 0 R] >> >>");
    print(viewer_on(pdf.file()), 0, 0);
    EXPECT_NE(machine.printed.find("/OCProperties"), std::string::npos);
}

TEST_F(Printing, WhatAPageHasFromThePageTreeIsPrinted) {
    machine.printer = "Office";
    PdfText pdf = pages(2);
    pdf.set(2, "<< /Type /Pages /Kids [10 0 R 20 0 R] /Count 2 /Rotate 90 /MediaBox [0 0 300 400] >>");
    pdf.set(10, "<< /Type /Page /Parent 2 0 R /Contents 11 0 R >>");
    print(viewer_on(pdf.file()), 0, 0);
    EXPECT_NE(machine.printed.find("/Rotate 90"), std::string::npos);
    EXPECT_NE(machine.printed.find("/MediaBox [ 0 0 300 400 ]"), std::string::npos);
}

}  // namespace
}  // namespace foliant::hosts::acrobat
