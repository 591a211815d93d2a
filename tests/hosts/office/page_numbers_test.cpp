#include <gtest/gtest.h>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

using enum NumberAlignment;
using enum PageBand;

/// One page number to add.
struct Number {
    PageBand band;
    NumberAlignment alignment;
    bool on_first_page;
};

test::PdfReader numbered(const std::string& name, const std::vector<Number>& numbers) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document(name));
    for (const Number& number : numbers)
        document->add_page_number(number.band, number.alignment, number.on_first_page);
    document->export_pdf("", folder / "out.pdf");
    return test::PdfReader(folder / "out.pdf");
}

TEST(PageNumber, StandsBelowOrAboveTheText) {
    EXPECT_EQ(numbered("footer.docx", {{header, center, true}}).text(2), "2 / Body 2. / Confidential");
    EXPECT_EQ(numbered("five.docx", {{footer, center, true}}).text(2), "This is page number 2. / 2");
}

TEST(PageNumber, StandsInTheMarginAndLeavesTheTextInPlace) {
    const auto pdf = numbered("five.docx", {{footer, center, true}, {header, center, true}});
    EXPECT_EQ(pdf.pages(), 5);
    EXPECT_NEAR(pdf.place(3, "This").top, 72, 4);
}

TEST(PageNumber, StandsLeftInTheMiddleOrRight) {
    // The text is 72 to 540 points wide; a digit about 7.
    EXPECT_NEAR(numbered("footer.docx", {{header, left, true}}).place(1, "1").left, 72, 2);
    EXPECT_NEAR(numbered("footer.docx", {{header, center, true}}).place(1, "1").left, 302.5, 2);
    EXPECT_NEAR(numbered("footer.docx", {{header, right, true}}).place(1, "1").left, 533, 2);
}

TEST(PageNumber, KeepsWhatTheFooterHolds) {
    EXPECT_EQ(numbered("footer.docx", {{footer, center, true}}).text(3), "Body 3. / Confidential / 3");
}

TEST(PageNumber, IsOnTheFirstPageWhenAskedFor) {
    EXPECT_EQ(numbered("footer.docx", {{footer, center, true}}).text(1), "Body 1. / Confidential / 1");
}

TEST(PageNumber, IsNotOnTheFirstPageWhenNot) {
    const auto pdf = numbered("footer.docx", {{footer, center, false}});
    EXPECT_EQ(pdf.text(1), "Body 1. / Confidential");
    EXPECT_EQ(pdf.text(2), "Body 2. / Confidential / 2");
}

TEST(PageNumber, StaysOffTheFirstPageInFooterAndHeader) {
    for (const auto& [first, second] : {std::pair(footer, header), std::pair(header, footer)}) {
        const auto pdf = numbered("footer.docx", {{first, center, false}, {second, center, false}});
        EXPECT_EQ(pdf.text(1), "Body 1. / Confidential");
        EXPECT_EQ(pdf.text(2), "2 / Body 2. / Confidential / 2");
    }
}

TEST(PageNumber, StaysOffTheFirstPageWhenThePageIsTurnedLater) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("footer.docx"));
    document->add_page_number(footer, center, false);
    document->set_orientation(true);
    document->export_pdf("", folder / "out.pdf");
    EXPECT_EQ(test::PdfReader(folder / "out.pdf").text(1), "Body 1. / Confidential");
    EXPECT_EQ(test::PdfReader(folder / "out.pdf").text(2), "Body 2. / Confidential / 2");
}

TEST(PageNumber, LeavesLaterSectionsAlone) {
    const auto pdf = numbered("sections.docx", {{footer, center, true}, {header, center, true}});
    EXPECT_EQ(pdf.text(2), "2 / First section, page 2. / 2");
    EXPECT_EQ(pdf.text(3), "Second section, landscape.");
}

TEST(PageNumber, RespectsATitlePage) {
    const auto without = numbered("title_page.docx", {{header, left, false}});
    EXPECT_EQ(without.text(1), "Title head / Body 1.");
    EXPECT_EQ(without.text(2), "Running head / 2 / Body 2.");
    const auto with = numbered("title_page.docx", {{header, left, true}});
    EXPECT_EQ(with.text(1), "Title head / 1 / Body 1.");
    EXPECT_EQ(with.text(3), "Running head / 3 / Body 3.");
}

TEST(PageNumber, RespectsAFirstPageWithAHeaderOfItsOwn) {
    const auto without = numbered("first_page.fodt", {{footer, center, false}, {header, center, false}});
    EXPECT_EQ(without.text(1), "First head / Body 1.");
    EXPECT_EQ(without.text(2), "Running head / 2 / Body 2. / 2");
    const auto with = numbered("first_page.fodt", {{footer, center, true}});
    EXPECT_EQ(with.text(1), "First head / Body 1. / 1");
    EXPECT_EQ(with.text(2), "Running head / Body 2. / 2");
}

TEST(PageNumber, GoesIntoTextAndHtmlToo) {
    EXPECT_EQ(numbered("utf8.txt", {{footer, center, true}}).text(1), "naïve café Łódź / second line / 1");
    EXPECT_EQ(numbered("page.html", {{footer, center, true}}).text(1), "A heading / Some prose. / 1");
}

}  // namespace
}  // namespace foliant::hosts::office
