#include <gtest/gtest.h>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

test::PdfReader turned(const std::string& name, bool landscape) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document(name));
    document->set_orientation(landscape);
    document->export_pdf("", folder / "out.pdf");
    return test::PdfReader(folder / "out.pdf");
}

TEST(Orientation, TurnsPortraitToLandscape) {
    EXPECT_EQ(turned("one.docx", true).size(1), "792 x 612");
}

TEST(Orientation, TurnsLandscapeToPortrait) {
    EXPECT_EQ(turned("landscape.docx", false).size(1), "612 x 792");
}

TEST(Orientation, LeavesWhatLiesRightAlready) {
    EXPECT_EQ(turned("landscape.docx", true).size(1), "792 x 612");
    const auto pdf = turned("margins.docx", false);
    EXPECT_EQ(pdf.size(1), "612 x 792");
    EXPECT_NEAR(pdf.place(1, "Margins").left, 36, 1);
}

TEST(Orientation, TurnsEverySection) {
    const auto landscape = turned("sections.docx", true);
    ASSERT_EQ(landscape.pages(), 3);
    for (int page = 1; page <= 3; ++page)
        EXPECT_EQ(landscape.size(page), "792 x 612") << page;
    const auto portrait = turned("sections.docx", false);
    for (int page = 1; page <= 3; ++page)
        EXPECT_EQ(portrait.size(page), "612 x 792") << page;
}

TEST(Orientation, TurnsTheTitlePageToo) {
    const auto pdf = turned("title_page.docx", true);
    ASSERT_EQ(pdf.pages(), 3);
    for (int page = 1; page <= 3; ++page)
        EXPECT_EQ(pdf.size(page), "792 x 612") << page;
}

TEST(Orientation, TurnsTheMarginsWithThePage) {
    // Top 1, right 2, bottom 1.5, left 0.5 inch: turned, the left margin is the old top, the top the old
    // right.
    const auto place = turned("margins.docx", true).place(1, "Margins");
    EXPECT_NEAR(place.left, 72, 1);
    EXPECT_NEAR(place.top, 144, 4);
}

TEST(Orientation, TurnedBackIsAsItWas) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("margins.docx"));
    document->set_orientation(true);
    document->set_orientation(false);
    document->export_pdf("", folder / "out.pdf");
    const test::PdfReader pdf(folder / "out.pdf");
    EXPECT_EQ(pdf.size(1), "612 x 792");
    EXPECT_NEAR(pdf.place(1, "Margins").left, 36, 1);
    EXPECT_NEAR(pdf.place(1, "Margins").top, 72, 4);
}

TEST(Orientation, TurnsTheMarginsAroundHeadersToo) {
    const auto pdf = turned("title_page.docx", true);
    EXPECT_NEAR(pdf.place(1, "Body").top, 72, 4);
    EXPECT_NEAR(pdf.place(2, "Running head").top, 36, 4);
}

}  // namespace
}  // namespace foliant::hosts::office
