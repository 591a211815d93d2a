#include <gmock/gmock.h>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/splice/spliced_document.h"

namespace foliant::hosts::acrobat::splice {
namespace {

using test::pages;
using test::PdfText;
using test::texts;
using test::with_bookmarks;
using testing::ElementsAre;

std::unique_ptr<PlainDocument> opened(const std::string& content) {
    const auto bytes = std::make_shared<const std::string>(content);
    return std::make_unique<PlainDocument>(FileBytes{*bytes, bytes});
}

class Linearising : public test::AcrobatTest {
  protected:
    /// What comes of these files, one behind the other; its hints are true to what qpdf finds in it.
    std::shared_ptr<structure::Pdf> result(const std::vector<PdfText>& sources) const {
        SplicedDocument document(*opened(sources.front().file()));
        for (std::size_t i = 1; i < sources.size(); ++i)
            document.append(*opened(sources[i].file()), true);
        std::string file;
        document.write_linearised([&](std::string_view bytes) { file += bytes; });
        auto pdf = test::read_pdf(write("linearised.pdf", file));
        EXPECT_TRUE(pdf->qpdf().isLinearized());
        pdf->qpdf().checkLinearization();
        for (const QPDFExc& warning : pdf->qpdf().getWarnings())
            ADD_FAILURE() << warning.what();
        return pdf;
    }
};

TEST_F(Linearising, KeepsThePagesInTheirOrder) {
    EXPECT_THAT(texts(*result({pages(2, "a"), pages(1, "b"), pages(2, "c")})),
                ElementsAre("a 1", "a 2", "b 1", "c 1", "c 2"));
}

TEST_F(Linearising, ASinglePageIsAllThatTheHintsTellOf) {
    EXPECT_THAT(texts(*result({pages(1, "a"), pages(0, "b")})), ElementsAre("a 1"));
}

TEST_F(Linearising, ATreeOfManyPagesHasHintsForEach) {
    EXPECT_EQ(texts(*result({pages(700, "a"), pages(333, "b")})).size(), 1033U);
}

TEST_F(Linearising, KeepsBookmarks) {
    EXPECT_THAT(test::bookmarks(*result({with_bookmarks("a"), with_bookmarks("b")})),
                ElementsAre("a 1 -> a 1", "  in it -> a 2", "end -> null", "b 1 -> b 1", "  in it -> b 2",
                            "end -> null"));
}

TEST_F(Linearising, BookmarksThatShowFromTheBeginningComeWithTheFirstPage) {
    PdfText first = with_bookmarks("a");
    first.add_to_catalogue("/PageMode /UseOutlines");
    EXPECT_EQ(test::bookmarks(*result({first, pages(1, "b")})).size(), 3U);
}

TEST_F(Linearising, TellsWhatPagesShareWithTheFirstOneAndWithEachOther) {
    PdfText first = pages(3, "a", "/Shared 900 0 R /Own << /X 901 0 R >> /Thumb 902 0 R");
    first.set(900, "<< /With 903 0 R >>").set(903, "[ 900 0 R (by all) ]");
    first.set_stream(901, std::string(300, ' '), "/Type /XObject /Subtype /Form /BBox [0 0 1 1]");
    first.set_stream(902, "\xFF", "/Width 1 /Height 1 /ColorSpace /DeviceGray /BitsPerComponent 8");
    first.add_to_catalogue("/ViewerPreferences 904 0 R /OpenAction 905 0 R");
    first.set(904, "<< /DisplayDocTitle true >>").set(905, "<< /S /GoTo /D [ 10 0 R /Fit ] /Own 903 0 R >>");
    const PdfText second =
        pages(3, "b", "/Shared 900 0 R").set(900, "<< /With [ 901 0 R ] >>").set(901, "(both)");
    EXPECT_EQ(texts(*result({first, second})).size(), 6U);
}

TEST_F(Linearising, WhatAPageSharesWithItsThumbnailIsTheEnginesToPutInOrder) {
    PdfText sharing = pages(2, "a", "/Own 903 0 R /Thumb 902 0 R");
    sharing.set(903, "[ /ICCBased null ]");
    sharing.set_stream(902, "\xFF", "/Width 1 /Height 1 /ColorSpace 903 0 R /BitsPerComponent 8");
    SplicedDocument document(*opened(sharing.file()));
    document.append(*opened(pages(1, "b").file()), true);
    EXPECT_THROW(document.write_linearised([](std::string_view) {}), glance::Doubt);
}

TEST_F(Linearising, WhatIsNullIsNobodysPart) {
    PdfText first = pages(2, "a", "/Own 900 0 R /Others [ 900 0 R 901 0 R ]");
    first.set(900, "null").set(901, "(there)");
    const auto pdf = result({first, pages(1, "b")});
    QPDFObjectHandle page = pdf->qpdf().getAllPages().at(1);
    QPDFObjectHandle others = page.getKey("/Others");
    EXPECT_EQ(others.getArrayItem(1).getStringValue(), "there");
    EXPECT_EQ(others.unparse(), "[ null " + others.getArrayItem(1).unparse() + " ]");
}

TEST_F(Linearising, ADocumentWithoutPagesIsWrittenAsAnyOther) {
    std::string file;
    SplicedDocument().write_linearised([&](std::string_view bytes) { file += bytes; });
    const auto pdf = test::read_pdf(write("empty.pdf", file));
    EXPECT_EQ(pdf->page_count(), 0);
    EXPECT_FALSE(pdf->qpdf().isLinearized());
}

}  // namespace
}  // namespace foliant::hosts::acrobat::splice
