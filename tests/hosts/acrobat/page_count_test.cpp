#include "hosts/acrobat/fixture.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using test::PdfText;

class PageCount : public AcrobatTest {
  protected:
    std::int32_t count(const PdfText& pdf) {
        return *document_on(pdf.file()).call("GetNumPages").if_holds<std::int32_t>();
    }
};

constexpr const char* empty_page = "<< /Type /Page /MediaBox [0 0 9 9] >>";

TEST_F(PageCount, OfADocumentWithoutPagesIsNought) {
    EXPECT_EQ(count(PdfText()), 0);
}

TEST_F(PageCount, IsThatOfATreeOfSeveralLevels) {
    PdfText pdf;
    pdf.set(2, "<< /Type /Pages /Kids [3 0 R 4 0 R] /Count 3 >>");
    pdf.set(3, "<< /Type /Pages /Kids [5 0 R 6 0 R] /Count 2 /Parent 2 0 R >>");
    for (const int page : {4, 5, 6})
        pdf.set(page, empty_page);
    EXPECT_EQ(count(pdf), 3);
}

TEST_F(PageCount, IsNotWhatTheFileClaimsWithoutHavingIt) {
    EXPECT_EQ(count(pages(1).set(2, "<< /Type /Pages /Kids [10 0 R] /Count 1000000 >>")), 1);
    EXPECT_EQ(count(pages(3).set(2, "<< /Type /Pages /Kids [10 0 R 20 0 R 30 0 R] /Count 2 >>")), 3);
    EXPECT_EQ(count(pages(2).set(2, "<< /Type /Pages /Kids [10 0 R 20 0 R] /Count -7 >>")), 2);
    EXPECT_EQ(count(pages(2).set(2, "<< /Type /Pages /Kids [10 0 R 20 0 R] >>")), 2);
}

TEST_F(PageCount, EndsForATreeThatContainsItself) {
    PdfText pdf = pages(2);
    pdf.set(2, "<< /Type /Pages /Kids [10 0 R 2 0 R 4 0 R 20 0 R] /Count 9 >>");
    pdf.set(4, "<< /Type /Pages /Kids [2 0 R 4 0 R] /Count 5 >>");
    EXPECT_EQ(count(pdf), 2);
}

TEST_F(PageCount, EndsForATreeThatDoublesAtEveryLevel) {
    PdfText pdf;
    for (int level = 0; level < 64; ++level) {
        const std::string below = std::to_string(level + 3) + " 0 R";
        pdf.set(level + 2, "<< /Type /Pages /Kids [" + below + " " + below + "] >>");
    }
    pdf.set(66, empty_page);
    EXPECT_EQ(count(pdf), 2);
}

TEST_F(PageCount, OfATreeThatIsVeryDeepIsFound) {
    constexpr int levels = 100'000;
    PdfText pdf;
    for (int level = 2; level < levels; ++level)
        pdf.set(level, "<< /Type /Pages /Kids [" + std::to_string(level + 1) + " 0 R] >>");
    pdf.set(levels, empty_page);
    EXPECT_EQ(count(pdf), 1);
}

TEST_F(PageCount, PassesOverWhatIsNoPage) {
    EXPECT_EQ(count(pages(2).set(2, "<< /Type /Pages /Kids [10 0 R null 99 0 R (text) 20 0 R] >>")), 2);
}

}  // namespace
}  // namespace foliant::hosts::acrobat
