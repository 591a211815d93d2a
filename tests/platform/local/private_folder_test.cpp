#include "platform/local/private_folder.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "automation/error.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;

/// Runs `body` in a forked process that is then killed like by a user's `kill -9`; what it returned.
template <class Body>
fs::path in_killed_process(Body body) {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string result = body().string();
        if (::write(pipe[1], result.data(), result.size()) < 0) ::_exit(1);
        ::raise(SIGKILL);
    }
    ::waitpid(child, nullptr, 0);
    std::array<char, 4096> text{};
    const ssize_t length = ::read(pipe[0], text.data(), text.size());
    ::close(pipe[0]);
    ::close(pipe[1]);
    return std::string(text.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
}

TEST(PrivateFolder, IsForItsOwnerAloneAndGoesWithEverythingInIt) {
    const tests::ScratchFolder parent;
    fs::path path;
    {
        PrivateFolder folder(parent.path());
        path = folder.path();
        struct stat status {};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0700U);
        EXPECT_EQ(path.parent_path(), parent.path());
        EXPECT_TRUE(path.filename().string().starts_with("foliant-"));
        fs::create_directories(path / "a" / "b");
        tests::write_file(path / "a" / "b" / "c", "x");
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(PrivateFolder, OfAKilledProcessIsSweptAway) {
    const tests::ScratchFolder parent;
    const fs::path left = in_killed_process([&] {
        auto* folder = new PrivateFolder(parent.path());
        tests::write_file(folder->path() / "1234.ps", "half a page");
        return folder->path();
    });
    ASSERT_TRUE(fs::exists(left / "1234.ps"));
    PrivateFolder next(parent.path());
    PrivateFolder::sweep(parent.path());
    EXPECT_FALSE(fs::exists(left));
    EXPECT_TRUE(fs::exists(next.path()));
}

/// Mounts a file system of so many files and folders, in a process whose mounts are its own. False where that is
/// forbidden.
bool mount_of_few_files(const fs::path& folder, int most) {
    const std::string options = "nr_inodes=" + std::to_string(most);
    return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("few", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

TEST(PrivateFolder, TakesTheRoomThatTheDeadHaveLeftNone) {
    const tests::ScratchFolder parent;
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr int cannot_mount = 2;
        if (!mount_of_few_files(parent.path(), 4)) ::_exit(cannot_mount);
        const fs::path left =
            in_killed_process([&] { return (new PrivateFolder(parent.path()))->path(); });  // 2 of 3
        const bool was_left = fs::exists(left);
        PrivateFolder next(parent.path());
        const bool is_there = fs::exists(next.path());
        ::_exit(was_left && is_there && !fs::exists(left) ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WEXITSTATUS(status) == 2) GTEST_SKIP() << "only root can mount a file system";
    EXPECT_EQ(status, 0);
}

TEST(PrivateFolder, OfALivingProcessIsLeftAlone) {
    const tests::ScratchFolder parent;
    PrivateFolder first(parent.path());
    PrivateFolder second(parent.path());
    EXPECT_NE(first.path(), second.path());
    EXPECT_TRUE(fs::exists(first.path()));
}

TEST(PrivateFolder, SweepingTouchesOnlyWhatIsSurelyADeadProcesss) {
    const tests::ScratchFolder parent;
    const tests::ScratchFolder elsewhere;
    tests::write_file(elsewhere / ".foliant-private", "");
    fs::create_directory_symlink(elsewhere.path(), parent / "foliant-linked");  // not a folder of its own
    fs::create_directory(parent / "foliant-nolock");  // made this very moment, or foreign
    fs::create_directory(parent / "foliant-longername");
    tests::write_file(parent / "foliant-longername/.foliant-private", "");
    tests::write_file(parent / "foliant-a_file", "");
    PrivateFolder::sweep(parent.path());
    EXPECT_TRUE(fs::exists(elsewhere / ".foliant-private"));
    for (const char* name :
         {"foliant-linked", "foliant-nolock", "foliant-longername/.foliant-private", "foliant-a_file"})
        EXPECT_TRUE(fs::exists(parent / name)) << name;
}

TEST(PrivateFolder, OfAnotherUserIsLeftAlone) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can make a folder of another user";
    const tests::ScratchFolder parent;
    fs::create_directory(parent / "foliant-abcdef");
    tests::write_file(parent / "foliant-abcdef/.foliant-private", "");
    ASSERT_EQ(::chown((parent / "foliant-abcdef").c_str(), 65534, 65534), 0);
    PrivateFolder::sweep(parent.path());
    EXPECT_TRUE(fs::exists(parent / "foliant-abcdef"));
}

// Every start sweeps while others are being made: no process may lose its folder to another one's sweep.
TEST(PrivateFolder, ManyProcessesThatStartAtOnceLeaveEachOtherAlone) {
    const tests::ScratchFolder parent;
    std::vector<pid_t> children;
    for (int i = 0; i < 6; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int round = 0; round < 40; ++round) {
                PrivateFolder folder(parent.path());
                for (int look = 0; look < 3; ++look) {
                    PrivateFolder::sweep(parent.path());
                    if (!fs::exists(folder.path() / ".foliant-private")) ::_exit(1);
                }
            }
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_TRUE(fs::is_empty(parent.path()));
}

TEST(PrivateFolder, FollowsNoLinkOutOfADeadFolder) {
    const tests::ScratchFolder parent;
    const tests::ScratchFolder elsewhere;
    tests::write_file(elsewhere / "precious", "x");
    fs::create_directory(parent / "foliant-abcdef");
    tests::write_file(parent / "foliant-abcdef/.foliant-private", "");
    fs::create_directory_symlink(elsewhere.path(), parent / "foliant-abcdef/link");
    PrivateFolder::sweep(parent.path());
    EXPECT_FALSE(fs::exists(parent / "foliant-abcdef"));
    EXPECT_TRUE(fs::exists(elsewhere / "precious"));
}

TEST(PrivateFolder, IsNotRemovedByAForkedChild) {
    const tests::ScratchFolder parent;
    const auto folder = std::make_unique<PrivateFolder>(parent.path());
    if (const pid_t child = ::fork(); child == 0) {
        folder->~PrivateFolder();
        ::_exit(0);
    } else {
        ::waitpid(child, nullptr, 0);
    }
    EXPECT_TRUE(fs::exists(folder->path()));
}

TEST(PrivateFolder, IsRemovedByAChildThatIsToldTo) {
    const tests::ScratchFolder parent;
    PrivateFolder folder(parent.path());
    if (const pid_t child = ::fork(); child == 0) {
        folder.remove();
        ::_exit(0);
    } else {
        ::waitpid(child, nullptr, 0);
    }
    EXPECT_FALSE(fs::exists(folder.place()));
}

TEST(PrivateFolder, IsMadeWhenSomebodyAsksForIt) {
    const tests::ScratchFolder parent;
    {
        PrivateFolder folder(parent.path());
        EXPECT_TRUE(fs::is_empty(parent.path()));
        EXPECT_EQ(folder.path(), folder.place());
        EXPECT_TRUE(fs::exists(folder.place()));
    }
    EXPECT_TRUE(fs::is_empty(parent.path()));
}

TEST(PrivateFolder, ThatAChildHasMadeIsRemovedByItsOwner) {
    const tests::ScratchFolder parent;
    PrivateFolder folder(parent.path());
    if (const pid_t child = ::fork(); child == 0) {
        folder.path();
        ::_exit(0);
    } else {
        ::waitpid(child, nullptr, 0);
    }
    EXPECT_TRUE(fs::exists(folder.place()));
    folder.remove();
    EXPECT_FALSE(fs::exists(folder.place()));
}

// An engine may write while its folder is removed; what is left has to be known as something to remove.
TEST(PrivateFolder, ThatCouldNotBeRemovedWholeIsSweptAway) {
    const tests::ScratchFolder parent;
    const fs::path left = in_killed_process([&] {
        auto* folder = new PrivateFolder(parent.path());
        std::atomic<bool> writing = true;
        std::thread engine([&] {
            // Some file systems list what is made while they are read, which has no end while somebody makes more.
            const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
            for (int i = 0; writing && std::chrono::steady_clock::now() < end; ++i) {
                std::error_code ignored;
                const fs::path office = folder->path() / "office";
                for (const fs::path& made : {office, office / std::to_string(i % 8)})
                    fs::create_directory(made, ignored);
            }
        });
        while (!fs::exists(folder->path() / "office" / "7"))
            ::usleep(100);
        folder->remove();
        writing = false;
        engine.join();
        return folder->path();
    });
    EXPECT_TRUE(!fs::exists(left) || fs::exists(left / ".foliant-private"));
    PrivateFolder::sweep(parent.path());
    EXPECT_FALSE(fs::exists(left));
}

TEST(PrivateFolder, SaysWhereItCouldNotBeMade) {
    const tests::ScratchFolder parent;
    try {
        PrivateFolder folder(parent.path() / "missing");
        FAIL() << "made " << folder.path();
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 76);
        EXPECT_EQ(error.description(),
                  "Path not found: cannot make a temporary folder in " + (parent / "missing").string() +
                      " (No such file or directory).\nFree some space there, or name another "
                      "folder: TMPDIR=FOLDER foliant ...");
    }
}

}  // namespace
}  // namespace foliant::platform::local::test
