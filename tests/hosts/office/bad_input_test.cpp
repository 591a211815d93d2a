#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/office/support.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

/// Expects the error to have that number and to name the document and the reason.
void expect_refusal(const std::string& name, std::int32_t number, const std::string& reason) {
    const auto error = tests::error_of([&] { test::open(test::document(name)); });
    EXPECT_EQ(error.number(), number) << error.description();
    EXPECT_EQ(error.source(), "Microsoft Word");
    EXPECT_NE(error.description().find(test::document(name).string()), std::string::npos)
        << error.description();
    EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
}

TEST(BadDocument, IsMissing) {
    expect_refusal("missing.docx", 5174, "does not exist");
}

TEST(BadDocument, IsAFolder) {
    expect_refusal("", 5151, "it is a folder");
}

TEST(BadDocument, IsAPipeThatNobodyWritesTo) {
    const tests::ScratchFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe.docx").c_str(), 0600), 0);
    const auto error = tests::error_of([&] { test::open(folder / "pipe.docx"); });
    EXPECT_EQ(error.number(), 5151);
    EXPECT_NE(error.description().find("it is a device or a pipe"), std::string::npos) << error.description();
}

TEST(BadDocument, IsEmpty) {
    expect_refusal("empty.docx", 5792, "it is empty (0 bytes)");
}

TEST(BadDocument, IsTruncated) {
    expect_refusal("truncated.docx", 5792, "breaks off");
}

TEST(BadDocument, IsTruncatedAtAnyLength) {
    const tests::ScratchFolder folder;
    const std::string whole = tests::read_file(test::document("picture.docx"));
    for (std::size_t size = 1; size < whole.size(); size += whole.size() / 23) {
        tests::write_file(folder / "cut.docx", whole.substr(0, size));
        const auto error = tests::error_of([&] { test::open(folder / "cut.docx"); });
        EXPECT_TRUE(error.number() == 5792 || error.number() == 5151) << size << ": " << error.description();
    }
}

TEST(BadDocument, HasDamagedXml) {
    expect_refusal("broken_xml.docx", 5792, "damaged");
}

TEST(BadDocument, IsNoiseUnderTheNameOfADocument) {
    expect_refusal("noise.docx", 5151, "of no known kind");
}

TEST(BadDocument, IsNoiseUnderTheNameOfAText) {
    expect_refusal("noise.txt", 5151, "of no known kind");
}

TEST(BadDocument, IsWhatOnlyLooksLikeAnOldFormat) {
    expect_refusal("half_mac.doc", 5151, "of no known kind");
    expect_refusal("control.doc", 5151, "of no known kind");
}

TEST(BadDocument, IsPlainTextUnderTheNameOfADocument) {
    expect_refusal("prose.docx", 5151, "it holds plain text");
}

TEST(BadDocument, IsAPdf) {
    expect_refusal("paper.doc", 5151, "it is a PDF file");
}

TEST(BadDocument, IsAnArchiveOfSomethingElse) {
    expect_refusal("archive.docx", 5151, "without a Word or OpenDocument text");
}

TEST(BadDocument, IsACompoundFileThatBreaksOff) {
    const tests::ScratchFolder folder;
    tests::write_file(folder / "cut.doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and no more");
    EXPECT_EQ(tests::error_of([&] { test::open(folder / "cut.doc"); }).number(), 5792);
}

TEST(BadDocument, IsXmlOfAnotherKind) {
    const tests::ScratchFolder folder;
    tests::write_file(folder / "other.xml", "<?xml version=\"1.0\"?><invoice><total>1</total></invoice>");
    EXPECT_EQ(tests::error_of([&] { test::open(folder / "other.xml"); }).number(), 5151);
}

TEST(BadDocument, CannotBeRead) {
    if (geteuid() == 0) GTEST_SKIP() << "the superuser reads every file";
    const tests::ScratchFolder folder;
    tests::write_file(folder / "secret.txt", "text");
    std::filesystem::permissions(folder / "secret.txt", std::filesystem::perms::none);
    EXPECT_EQ(tests::error_of([&] { test::open(folder / "secret.txt"); }).number(), 70);
}

TEST(BadDocument, DoesNotSpoilTheNextOne) {
    EXPECT_EQ(tests::error_of([] { test::open(test::document("broken_xml.docx")); }).number(), 5792);
    EXPECT_EQ(test::open(test::document("five.docx"))->page_count(), 5);
}

}  // namespace
}  // namespace foliant::hosts::office
