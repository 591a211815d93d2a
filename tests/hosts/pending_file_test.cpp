#include "hosts/pending_file.h"

#include <cerrno>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/scratch_folder.h"

namespace foliant::hosts {
namespace {

namespace fs = std::filesystem;
using tests::Names;
using tests::read_file;
using tests::write_file;

class PendingFileTest : public testing::Test {
  protected:
    Names names() const { return tests::names_in(folder); }
    /// The errno value of what `action` fails with, 0 when it does not; the failure has to name `path`.
    static int failure(const fs::path& path, const std::function<void()>& action) {
        try {
            action();
        } catch (const fs::filesystem_error& error) {
            EXPECT_EQ(error.path1(), path);
            return error.code().value();
        }
        return 0;
    }
    static int failure_to_open(const fs::path& path) {
        return failure(path, [&] { PendingFile file(path); });
    }

    const tests::ScratchFolder scratch;
    const fs::path folder = scratch.path();
    const fs::path target = folder / "out.pdf";
};

TEST_F(PendingFileTest, HasNoNameUntilItIsCommitted) {
    PendingFile file(target);
    file.write("half ");
    EXPECT_EQ(names(), Names{}) << "a killed process would leave it";
    file.write("and half");
    file.commit();
    EXPECT_EQ(read_file(target), "half and half");
    EXPECT_EQ(names(), Names{"out.pdf"});
}

TEST_F(PendingFileTest, IsGoneWhenItIsNotCommitted) {
    for (const auto name : {PendingFile::Name::nameless, PendingFile::Name::hidden}) {
        { PendingFile(target, name).write("half"); }
        EXPECT_EQ(names(), Names{});
    }
}

TEST_F(PendingFileTest, HasAHiddenNameWhereItNeedsOne) {
    PendingFile file(target, PendingFile::Name::hidden);
    file.write("new");
    ASSERT_EQ(names().size(), 1U);
    EXPECT_TRUE(names().front().starts_with(".foliant-"));
    file.commit();
    EXPECT_EQ(read_file(target), "new");
    EXPECT_EQ(names(), Names{"out.pdf"});
}

TEST_F(PendingFileTest, OfAProcessThatWasKilledIsFoundByItsGroup) {
    fs::create_directory(folder / "elsewhere");
    write_file(folder / "elsewhere" / "old.pdf", "old");
    fs::create_symlink("elsewhere/old.pdf", target);
    for (const fs::path& made : {folder / "new.pdf", target}) {
        const pid_t killed = ::fork();
        if (killed == 0) {
            ::setpgid(0, 0);
            PendingFile file(made, PendingFile::Name::hidden);
            file.write("half");
            ::raise(SIGKILL);
        }
        ::waitpid(killed, nullptr, 0);
        const PendingFile of_another_call(made, PendingFile::Name::hidden);
        const fs::path beside = made == target ? folder / "elsewhere" : folder;
        const auto there = tests::names_in(beside).size();
        remove_pending_files(made, killed);
        EXPECT_EQ(tests::names_in(beside).size(), there - 1);
    }
    EXPECT_EQ(names(), (Names{"elsewhere", "out.pdf"}));
    EXPECT_EQ(tests::names_in(folder / "elsewhere"), Names{"old.pdf"});
    remove_pending_files(folder / "none" / "out.pdf", 1);
}

TEST_F(PendingFileTest, OpensAgainWithinTheProcess) {
    PendingFile file(target);
    write_file(file.path_in_this_process(), "through its path");
    file.commit();
    EXPECT_EQ(read_file(target), "through its path");
}

TEST_F(PendingFileTest, ReplacesWhatHadTheName) {
    write_file(target, "old");
    PendingFile file(target);
    file.write("new");
    EXPECT_EQ(read_file(target), "old");
    file.commit();
    EXPECT_EQ(read_file(target), "new");
    EXPECT_EQ(names(), Names{"out.pdf"});
}

TEST_F(PendingFileTest, GoesToTheCurrentFolderByItsBareName) {
    const fs::path former = fs::current_path();
    fs::current_path(folder);
    PendingFile file("out.pdf");
    file.write("here");
    file.commit();
    fs::current_path(former);
    EXPECT_EQ(read_file(target), "here");
}

TEST_F(PendingFileTest, HasTheRightsOfANewFile) {
    const mode_t former = ::umask(022);
    PendingFile file(target);
    file.commit();
    ::umask(former);
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0644));
}

TEST_F(PendingFileTest, HasTheRightsOfTheFileThatItReplacesFromTheBeginning) {
    for (const auto name : {PendingFile::Name::nameless, PendingFile::Name::hidden}) {
        for (const mode_t rights : {0600U, 0640U, 0664U, 0444U}) {
            write_file(target, "old");
            ASSERT_EQ(::chmod(target.c_str(), rights), 0);
            PendingFile file(target, name);
            struct stat status {};
            ASSERT_EQ(::fstat(file.descriptor(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777U, rights);
            file.commit();
            EXPECT_EQ(fs::status(target).permissions(), fs::perms(rights));
            fs::remove(target);
        }
    }
}

TEST_F(PendingFileTest, BelongsToWhomTheFileThatItReplacesBelonged) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
    write_file(target, "old");
    ASSERT_EQ(::chown(target.c_str(), 1000, 33), 0);
    ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
    PendingFile(target).commit();
    struct stat status {};
    ASSERT_EQ(::stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1000U);
    EXPECT_EQ(status.st_gid, 33U);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(PendingFileTest, GivesNoRightsAwayWhereTheOwnerCannotBeKept) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
    ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
    const auto replaced_by_another = [&](mode_t rights) {
        write_file(target, "old");
        EXPECT_EQ(::chown(target.c_str(), 1000, 33), 0);
        EXPECT_EQ(::chmod(target.c_str(), rights), 0);
        EXPECT_EQ(::seteuid(65534), 0);
        PendingFile(target).commit();
        EXPECT_EQ(::seteuid(0), 0);
        const fs::perms now = fs::status(target).permissions();
        fs::remove(target);
        return now;
    };
    EXPECT_EQ(replaced_by_another(0640), fs::perms(0600));
    EXPECT_EQ(replaced_by_another(0664), fs::perms(0644));
    EXPECT_EQ(replaced_by_another(0604), fs::perms(0600)) << "who was kept out is one of the others now";
}

TEST_F(PendingFileTest, TakesThePlaceOfTheFileThatALinkLeadsTo) {
    fs::create_directory(folder / "real");
    write_file(folder / "real" / "a.pdf", "old");
    ASSERT_EQ(::chmod((folder / "real" / "a.pdf").c_str(), 0600), 0);
    fs::create_symlink("real/a.pdf", folder / "middle");
    fs::create_symlink("middle", target);
    PendingFile file(target);
    file.write("new");
    file.commit();
    EXPECT_EQ(fs::read_symlink(target), "middle");
    EXPECT_EQ(fs::read_symlink(folder / "middle"), "real/a.pdf");
    EXPECT_EQ(read_file(folder / "real" / "a.pdf"), "new");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0600));
    EXPECT_EQ(tests::names_in(folder / "real"), Names{"a.pdf"});
}

TEST_F(PendingFileTest, TakesThePlaceOfALinkThatLeadsNowhere) {
    fs::create_symlink("nowhere", target);
    PendingFile file(target);
    file.write("new");
    file.commit();
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(target)));
    EXPECT_EQ(names(), Names{"out.pdf"});
}

TEST_F(PendingFileTest, NeedsItsFolder) {
    EXPECT_EQ(failure_to_open(folder / "missing" / "out.pdf"), ENOENT);
    write_file(folder / "file", "");
    EXPECT_EQ(failure_to_open(folder / "file" / "out.pdf"), ENOTDIR);
}

TEST_F(PendingFileTest, RefusesAFolderAsItsName) {
    EXPECT_EQ(failure_to_open(folder), EISDIR);
}

TEST_F(PendingFileTest, LeavesDevicesAndPipesAlone) {
    ASSERT_EQ(::mkfifo(target.c_str(), 0600), 0);
    EXPECT_EQ(failure_to_open(target), ENOTSUP);
    EXPECT_TRUE(fs::is_fifo(target));
    EXPECT_EQ(failure_to_open("/dev/null"), ENOTSUP);
    fs::create_symlink("/dev/null", folder / "link");
    EXPECT_EQ(failure_to_open(folder / "link"), ENOTSUP);
}

TEST_F(PendingFileTest, SaysWhyAFolderCannotBeWritten) {
    EXPECT_NE(failure_to_open("/proc/x.pdf"), 0);  // for nobody, the superuser included
    if (::geteuid() == 0) return;
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(failure_to_open(target), EACCES);
    fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(PendingFileTest, LeavesNothingWhenTheDiskFillsUp) {
    // A limit on the size of files stands in for a disk with that much space.
    const auto former_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    ::getrlimit(RLIMIT_FSIZE, &former);
    const rlimit small{10, former.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const int reason = failure(target, [&] { PendingFile(target).write("these are more than ten bytes"); });
    ::setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, former_handler);
    EXPECT_EQ(reason, EFBIG);
    EXPECT_EQ(names(), Names{});
}

}  // namespace
}  // namespace foliant::hosts
