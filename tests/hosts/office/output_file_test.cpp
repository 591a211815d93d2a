#include "hosts/office/output_file.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/office/support.h"

namespace foliant::hosts::office {
namespace {

using test::Scratch;

TEST(OutputFile, AppearsOnlyWhenPublished) {
    const Scratch folder;
    OutputFile file(folder / "out.pdf");
    file.write("half ");
    EXPECT_FALSE(std::filesystem::exists(folder / "out.pdf"));
    file.write("and half");
    file.publish();
    EXPECT_EQ(test::read_file(folder / "out.pdf"), "half and half");
    EXPECT_EQ(folder.content(), "out.pdf");
}

TEST(OutputFile, LeavesNothingWhenItIsAbandoned) {
    const Scratch folder;
    { OutputFile(folder / "out.pdf").write("half"); }
    EXPECT_EQ(folder.content(), "");
}

TEST(OutputFile, HasNoNameBeforeItIsPublished) {
    const Scratch folder;
    OutputFile file(folder / "out.pdf");
    file.write("half");
    EXPECT_EQ(folder.content(), "") << "a killed process would leave it";
}

TEST(OutputFile, TakesThePlaceOfAnOlderFile) {
    const Scratch folder;
    test::write_file(folder / "out.pdf", "old");
    OutputFile file(folder / "out.pdf");
    file.write("new");
    EXPECT_EQ(test::read_file(folder / "out.pdf"), "old");
    file.publish();
    EXPECT_EQ(test::read_file(folder / "out.pdf"), "new");
    EXPECT_EQ(folder.content(), "out.pdf");
}

TEST(OutputFile, HasThePermissionsOfAnyNewFile) {
    const Scratch folder;
    const mode_t former = umask(022);
    OutputFile file(folder / "out.pdf");
    file.publish();
    umask(former);
    struct stat status;
    ASSERT_EQ(stat((folder / "out.pdf").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0644U);
}

TEST(OutputFile, NamesAMissingFolder) {
    const Scratch folder;
    const auto error = test::error_of([&] { OutputFile file(folder / "missing/out.pdf"); });
    EXPECT_EQ(error.number(), 76);
    EXPECT_EQ(error.description(),
              "Cannot write " + (folder / "missing/out.pdf").string() +
                  ": its folder does not exist. Create the folder or choose another one.");
}

TEST(OutputFile, RefusesAFolderAsItsName) {
    const Scratch folder;
    EXPECT_EQ(test::error_of([&] { OutputFile file(folder.path()); }).number(), 75);
}

TEST(OutputFile, NamesAWriteProtectedFolder) {
    // /proc is write-protected for everybody, the superuser included.
    const auto error = test::error_of([] { OutputFile file("/proc/sys/out.pdf"); });
    EXPECT_TRUE(error.number() == 70 || error.number() == 76) << error.number() << error.description();
    if (geteuid() == 0) return;
    const Scratch folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_read);
    EXPECT_EQ(test::error_of([&] { OutputFile file(folder / "out.pdf"); }).number(), 70);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
}

TEST(OutputFile, ReportsAFullDisk) {
    OutputFile file("/dev/full");
    EXPECT_EQ(test::error_of([&] { file.write("more than nothing"); }).number(), 61);
}

TEST(OutputFile, LeavesNothingWhenTheDiskFillsUp) {
    const Scratch folder;
    // A limit on the size of files stands in for a disk with that much space.
    const auto former_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit small{10, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    std::int32_t number = 0;
    try {
        OutputFile file(folder / "out.pdf");
        file.write("these are more than ten bytes");
    } catch (const automation::Error& error) {
        number = error.number();
    }
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, former_handler);
    EXPECT_EQ(number, 61);
    EXPECT_EQ(folder.content(), "");
}

}  // namespace
}  // namespace foliant::hosts::office
