#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

std::string printed_pages(const std::string& range) {
    const tests::ScratchFolder folder;
    test::open(test::document("five.docx"))->export_pdf(range, folder / "out.pdf");
    const test::PdfReader pdf(folder / "out.pdf");
    std::string numbers;
    for (int page = 1; page <= pdf.pages(); ++page) {
        const std::string text = pdf.text(page);
        numbers += text.substr(text.size() - 2, 1);
    }
    return numbers;
}

TEST(PdfExport, PrintsAllPagesByDefault) {
    EXPECT_EQ(printed_pages(""), "12345");
    EXPECT_EQ(printed_pages("  "), "12345");
}

TEST(PdfExport, PrintsThePagesOfTheRange) {
    EXPECT_EQ(printed_pages("2"), "2");
    EXPECT_EQ(printed_pages("1-3,5"), "1235");
    EXPECT_EQ(printed_pages("-2"), "12");
    EXPECT_EQ(printed_pages("4-"), "45");
}

TEST(PdfExport, PrintsThePagesInTheOrderOfTheRange) {
    EXPECT_EQ(printed_pages("5,1"), "51");
    EXPECT_EQ(printed_pages("3-1"), "321");
}

TEST(PdfExport, RefusesAPageThatIsNotThereAndWritesNothing) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("five.docx"));
    const auto error = tests::error_of([&] { document->export_pdf("3-7", folder / "out.pdf"); });
    EXPECT_EQ(error.number(), 4608);
    EXPECT_EQ(error.description(), "The page range \"3-7\" names page 7, but " +
                                       test::document("five.docx").string() + " has 5 pages.");
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names());
}

TEST(PdfExport, KeepsLigaturesAccentsAndEveryScript) {
    const tests::ScratchFolder folder;
    test::open(test::document("text_mix.docx"))->export_pdf("", folder / "out.pdf");
    EXPECT_EQ(test::PdfReader(folder / "out.pdf").text(1),
              "efficient office flow, naïve café, Łódź, Žižkov, Ελλάδα, Москва / "
              "efficient office flow, naïve café, Łódź, Žižkov, Ελλάδα, Москва / "
              "efficient office flow, naïve café");
}

TEST(PdfExport, CanBeRepeated) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("one.docx"));
    document->export_pdf("", folder / "first.pdf");
    document->set_orientation(true);
    document->export_pdf("", folder / "second.pdf");
    EXPECT_EQ(test::PdfReader(folder / "first.pdf").size(1), "612 x 792");
    EXPECT_EQ(test::PdfReader(folder / "second.pdf").size(1), "792 x 612");
}

TEST(PdfExport, NamesAMissingFolder) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("one.docx"));
    EXPECT_EQ(tests::error_of([&] { document->export_pdf("", folder / "no/out.pdf"); }).number(), 76);
    EXPECT_EQ(tests::error_of([&] { document->export_ps("", folder / "no/out.ps"); }).number(), 76);
}

TEST(PdfExport, ReportsAFullDiskUnderTheTemporaryFolder) {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("text_mix.docx"));
    const auto former_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit small{2000, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    std::string failure;
    try {
        document->export_pdf("", folder / "out.pdf");
    } catch (const automation::Error& error) {
        failure = std::to_string(error.number()) + " " + error.description();
    }
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, former_handler);
    EXPECT_EQ(failure,
              "61 The PDF was cut short. Probably the disk of the temporary folder is full, or files may not "
              "become that large (ulimit -f).");
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names());
}

}  // namespace
}  // namespace foliant::hosts::office
