#include <gtest/gtest.h>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

/// The text of the first page of a document, printed as PDF.
std::string printed_text(const std::filesystem::path& path) {
    const tests::ScratchFolder folder;
    test::open(path)->export_pdf("", folder / "out.pdf");
    return test::PdfReader(folder / "out.pdf").text(1);
}

std::string printed(const std::string& name) {
    return printed_text(test::document(name));
}

TEST(OpenDocument, ReadsWord) {
    EXPECT_EQ(printed("one.docx"), "This is page number 1.");
}

TEST(OpenDocument, ReadsOpenDocument) {
    EXPECT_EQ(printed("text.odt"), "Open words.");
}

TEST(OpenDocument, ReadsFlatOpenDocument) {
    EXPECT_EQ(printed("first_page.fodt"), "First head / Body 1.");
}

TEST(OpenDocument, ReadsRichText) {
    EXPECT_EQ(printed("note.rtf"), "Rich words.");
}

TEST(OpenDocument, ReadsHtml) {
    EXPECT_EQ(printed("page.html"), "A heading / Some prose.");
}

TEST(OpenDocument, ReadsTextInAnyOfThreeEncodings) {
    EXPECT_EQ(printed("utf8.txt"), "naïve café Łódź / second line");
    EXPECT_EQ(printed("latin.txt"), "naïve café");
    EXPECT_EQ(printed("utf16.txt"), "naïve café");
}

TEST(OpenDocument, ReadsTextUnderAnOldName) {
    EXPECT_EQ(printed("old.doc"), "Plain words under an old name.");
}

TEST(OpenDocument, ReadsWordForWindowsBefore6) {
    EXPECT_EQ(printed("word2.doc"), "Words of Word 2. / And more.");
    EXPECT_EQ(printed("word1.doc"), "Words of Word 1.");
}

TEST(OpenDocument, GoesByContentNotByName) {
    const tests::ScratchFolder folder;
    std::filesystem::copy(test::document("one.docx"), folder / "one.doc");
    EXPECT_EQ(printed_text(folder / "one.doc"), "This is page number 1.");
    std::filesystem::copy(test::document("note.rtf"), folder / "note.doc");
    EXPECT_EQ(printed_text(folder / "note.doc"), "Rich words.");
}

TEST(OpenDocument, TakesAnyName) {
    const tests::ScratchFolder folder;
    const auto path = folder / "Größe #1 100%, naïve?.docx";
    std::filesystem::copy(test::document("one.docx"), path);
    EXPECT_EQ(test::open(path)->title(), "Größe #1 100%, naïve?.docx");
    EXPECT_EQ(printed_text(path), "This is page number 1.");
}

TEST(OpenDocument, WritesNothingBesideIt) {
    const tests::ScratchFolder folder;
    std::filesystem::copy(test::document("one.docx"), folder / "one.docx");
    const auto time = std::filesystem::last_write_time(folder / "one.docx");
    const auto document = test::open(folder / "one.docx");
    document->set_orientation(true);
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names{"one.docx"});
    document->close();
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names{"one.docx"});
    EXPECT_EQ(std::filesystem::last_write_time(folder / "one.docx"), time);
    EXPECT_EQ(tests::read_file(folder / "one.docx"), tests::read_file(test::document("one.docx")));
}

TEST(OpenDocument, OpensOneAfterTheOtherAndSeveralAtOnce) {
    EXPECT_EQ(test::open(test::document("one.docx"))->page_count(), 1);
    const auto five = test::open(test::document("five.docx"));
    const auto one = test::open(test::document("one.docx"));
    EXPECT_EQ(five->page_count(), 5);
    EXPECT_EQ(one->page_count(), 1);
}

TEST(OpenDocument, IsOfNoUseWhenClosed) {
    const auto document = test::open(test::document("one.docx"));
    document->close();
    EXPECT_EQ(tests::error_of([&] { document->page_count(); }).number(), 4198);
}

}  // namespace
}  // namespace foliant::hosts::office
