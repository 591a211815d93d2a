#include "platform/local/local_files.h"

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

using tests::failure;

class LocalFilesTest : public testing::Test {
  protected:
    tests::ScratchFolder folder;
    LocalFiles files;
};

TEST_F(LocalFilesTest, LengthFollowsLinksAndCountsBytes) {
    tests::write_file(folder / "a.doc", "12345");
    fs::create_symlink("a.doc", folder / "link.doc");
    tests::write_file(folder / "empty.doc", "");
    EXPECT_EQ(files.length(folder / "a.doc"), 5);
    EXPECT_EQ(files.length(folder / "link.doc"), 5);
    EXPECT_EQ(files.length(folder / "empty.doc"), 0);
}

TEST_F(LocalFilesTest, LengthOfAnOversizedFileFits) {
    tests::write_file(folder / "large.ps", "");
    fs::resize_file(folder / "large.ps", 5'000'000'000U);
    EXPECT_EQ(files.length(folder / "large.ps"), 5'000'000'000);
}

TEST_F(LocalFilesTest, LengthSaysWhyThereIsNone) {
    EXPECT_EQ(failure([&] { files.length("/proc/nosuch"); }),
              "53 File not found: cannot find /proc/nosuch (No such file or directory).");
    EXPECT_EQ(failure([&] { files.length(""); }),
              "53 File not found: cannot find a file without a name (No such file or directory).");
    EXPECT_EQ(failure([&] { files.length("/proc"); }),
              "53 File not found: cannot use /proc (Is a directory).");
    EXPECT_EQ(failure([&] { files.length("/dev/null"); }),
              "53 File not found: /dev/null is no ordinary file.");
    EXPECT_TRUE(failure([&] { files.length("/" + std::string(300, 'x')); }).starts_with("53 "));
    EXPECT_TRUE(failure([&] { files.length("/dev/null/x"); }).starts_with("53 "));
}

TEST_F(LocalFilesTest, LengthOfALinkInACircleIsNotFound) {
    fs::create_symlink("loop", folder / "loop");
    EXPECT_TRUE(failure([&] { files.length(folder / "loop"); }).starts_with("53 "));
}

TEST_F(LocalFilesTest, ANameDoesNotEndAtANulThatItHolds) {
    tests::write_file(folder / "a.pdf", "x");
    const std::string sly = folder / "a.pdf\0.txt"s;
    EXPECT_TRUE(failure([&] { files.length(sly); }).starts_with("53 "));
    EXPECT_TRUE(failure([&] { files.remove(sly); }).starts_with("53 "));
    EXPECT_TRUE(failure([&] { files.create_text(sly, TextPurpose::result); }).starts_with("75 "));
    EXPECT_TRUE(failure([&] { files.make_folder(folder / "b\0c"s); }).starts_with("76 "));
    EXPECT_TRUE(fs::exists(folder / "a.pdf"));
    EXPECT_FALSE(fs::exists(folder / "b"));
}

TEST_F(LocalFilesTest, RemovesALinkAndNotItsTarget) {
    tests::write_file(folder / "a", "x");
    fs::create_symlink("a", folder / "link");
    files.remove(folder / "link");
    EXPECT_TRUE(fs::exists(folder / "a"));
    EXPECT_FALSE(fs::is_symlink(folder / "link"));
}

TEST_F(LocalFilesTest, WhatMayNotBeDeletedRaises70) {
    EXPECT_EQ(failure([&] { files.remove("/proc/version"); }),
              "70 Permission denied: cannot delete /proc/version (Operation not permitted).");
}

TEST_F(LocalFilesTest, AFolderIsNoFileToDelete) {
    EXPECT_TRUE(failure([&] { files.remove(folder.path()); }).starts_with("53 "));
    EXPECT_TRUE(fs::exists(folder.path()));
}

TEST_F(LocalFilesTest, AFolderCannotBeMadeWhereAFileIs) {
    tests::write_file(folder / "taken", "");
    EXPECT_EQ(failure([&] { files.make_folder(folder / "taken"); }),
              "75 Path/File access error: cannot make the folder " + (folder / "taken").string() +
                  " (File exists).");
    EXPECT_TRUE(failure([&] { files.make_folder(folder / "taken/below"); }).starts_with("76 "));
    EXPECT_TRUE(failure([&] { files.make_folder("/" + std::string(300, 'x')); }).starts_with("76 "));
}

TEST_F(LocalFilesTest, ATextCannotBeWrittenOverAFolderOrIntoNone) {
    EXPECT_TRUE(failure([&] { files.create_text(folder.path(), TextPurpose::result); }).starts_with("75 "));
    EXPECT_TRUE(failure([&] { files.create_text("", TextPurpose::result); }).starts_with("75 "));
    EXPECT_TRUE(failure([&] { files.create_text("", TextPurpose::scratch); }).starts_with("75 "));
    EXPECT_EQ(failure([&] { files.create_text(folder / "missing/a.ps", TextPurpose::result); }),
              "76 Path not found: cannot write " + (folder / "missing/a.ps").string() +
                  " (No such file or directory).");
}

TEST_F(LocalFilesTest, AFullDiskRaises61AtCloseAtTheLatest) {
    const auto file = files.create_text("/dev/full", TextPurpose::result);
    file->write_line("short lines are kept back");
    EXPECT_EQ(failure([&] { file->close(); }),
              "61 Disk full: cannot write /dev/full (No space left on device).");
    EXPECT_EQ(failure([&] { file->close(); }), "no failure");
}

TEST_F(LocalFilesTest, ATextThatIsMadeAgainLeavesTheOldOneItsOtherNames) {
    const std::string old = folder.write("old.txt", "what was there").string();
    const std::string kept = (folder / "kept.txt").string();
    std::filesystem::create_hard_link(old, kept);
    files.create_text(old, TextPurpose::result)->close();
    EXPECT_EQ(tests::read_file(old), "");
    EXPECT_EQ(tests::read_file(kept), "what was there");
}

TEST_F(LocalFilesTest, ATextThatIsNeverClosedLeavesWhatWasThere) {
    const std::string old = folder.write("old.txt", "what was there").string();
    for (const std::string& path : {old, (folder / "new.txt").string()})
        files.create_text(path, TextPurpose::result)->write_line(std::string(100'000, 'x'));
    EXPECT_EQ(tests::read_file(old), "what was there");
    EXPECT_EQ(tests::names_in(folder.path()), std::vector<std::string>{"old.txt"});
}

TEST_F(LocalFilesTest, AFullDiskShowsWhileALongTextIsWritten) {
    const auto file = files.create_text("/dev/full", TextPurpose::result);
    EXPECT_TRUE(failure([&] {
                    for (int i = 0; i < 100; ++i)
                        file->write_line(std::string(1000, 'x'));
                }).starts_with("61 "));
}

TEST_F(LocalFilesTest, DestroyingATextWithWhatCannotBeWrittenIsSilent) {
    EXPECT_NO_THROW(files.create_text("/dev/full", TextPurpose::result)->write_line("lost"));
}

TEST_F(LocalFilesTest, AFileThatGrowsOverItsLimitIsAFullDiskToo) {
    const auto ignoring = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit tight{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    const auto file = files.create_text(folder / "a.txt", TextPurpose::result);
    file->write_line(std::string(5000, 'x'));
    const std::string told = failure([&] { file->close(); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, ignoring);
    EXPECT_TRUE(told.starts_with("61 ")) << told;
}

TEST_F(LocalFilesTest, ManyLinesArriveInOrder) {
    std::string expected;
    const auto file = files.create_text(folder / "a.txt", TextPurpose::result);
    for (int i = 0; i < 20000; ++i) {
        file->write_line("line " + std::to_string(i));
        expected += "line " + std::to_string(i) + "\r\n";
    }
    file->close();
    EXPECT_EQ(tests::read_file(folder / "a.txt"), expected);
}

TEST_F(LocalFilesTest, LooksIntoTheCurrentFolderByBareNameOnly) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    tests::write_file(folder / "4711", "");
    fs::create_symlink("nowhere", folder / "4712");
    EXPECT_TRUE(files.exists_in_current_folder("4711"));
    EXPECT_TRUE(files.exists_in_current_folder("4712"));
    EXPECT_FALSE(files.exists_in_current_folder("4713"));
    EXPECT_FALSE(files.exists_in_current_folder(""));
    EXPECT_FALSE(files.exists_in_current_folder(folder / "4711"));
    fs::current_path(before);
}

TEST_F(LocalFilesTest, AListingFollowsLinksAndLeavesOutWhatIsNoFile) {
    tests::write_file(folder / "a.pdf", "x");
    fs::create_symlink("a.pdf", folder / "link.pdf");
    fs::create_symlink("nowhere", folder / "dangling.pdf");
    ASSERT_EQ(::mkfifo((folder / "pipe.pdf").c_str(), 0600), 0);
    const auto listing = files.list(folder / "*.pdf");
    EXPECT_EQ(listing->next(), "a.pdf");
    EXPECT_EQ(listing->next(), "link.pdf");
    EXPECT_EQ(listing->next(), std::nullopt);
}

TEST_F(LocalFilesTest, AListingPassesOverFilesThatAreGoneWhenTheirTurnComes) {
    tests::write_file(folder / "a.pdf", "x");
    tests::write_file(folder / "b.pdf", "x");
    const auto listing = files.list(folder / "*.pdf");
    files.remove(folder / "a.pdf");
    EXPECT_EQ(listing->next(), "b.pdf");
}

TEST_F(LocalFilesTest, AListingOfWhatIsNoFolderIsEmpty) {
    tests::write_file(folder / "a.pdf", "x");
    for (const std::string& pattern : {(folder / "a.pdf/*").string(), "/" + std::string(300, 'x') + "/*"})
        EXPECT_EQ(files.list(pattern)->next(), std::nullopt) << pattern;
}

TEST_F(LocalFilesTest, APatternWithANulNamesNoFiles) {
    EXPECT_EQ(failure([&] { files.list("/proc/\0*"s); }).substr(0, 28), "52 Bad file name or number: ");
}

// Root may do everything, so what an ordinary user may not is tried by an ordinary user.
TEST_F(LocalFilesTest, AFolderWithoutRightsRaises70) {
    if (::geteuid() == 0) {
        ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
        tests::write_file(folder / "a", "x");
        ASSERT_EQ(::seteuid(65534), 0);
    } else {
        tests::write_file(folder / "a", "x");
        ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    }
    const std::string removing = failure([&] { files.remove(folder / "a"); });
    const std::string writing = failure([&] { files.create_text(folder / "b", TextPurpose::result); });
    const std::string making = failure([&] { files.make_folder(folder / "c"); });
    ASSERT_EQ(::seteuid(::getuid()), 0);
    ::chmod(folder.path().c_str(), 0700);
    EXPECT_EQ(removing,
              "70 Permission denied: cannot delete " + (folder / "a").string() + " (Permission denied).");
    EXPECT_EQ(writing,
              "70 Permission denied: cannot write " + (folder / "b").string() + " (Permission denied).");
    EXPECT_EQ(making, "70 Permission denied: cannot make the folder " + (folder / "c").string() +
                          " (Permission denied).");
}

TEST_F(LocalFilesTest, AFolderThatMayNotBeReadCannotBeListed) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0311), 0);
    if (::geteuid() == 0) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    const std::string listing = failure([&] { files.list(folder / "*"); });
    ASSERT_EQ(::seteuid(::getuid()), 0);
    ::chmod(folder.path().c_str(), 0700);
    EXPECT_EQ(listing,
              "70 Permission denied: cannot list " + (folder / "").string() + " (Permission denied).");
}

}  // namespace
}  // namespace foliant::platform::local::test
