#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <system_error>
#include <thread>
#include <unistd.h>

#include "hosts/containment/contained.h"
#include "hosts/containment/landlock.h"

namespace foliant::hosts::containment {
namespace {

namespace fs = std::filesystem;
using test::contained;
using test::opening;
using test::outcome;

class Files : public testing::Test {
  protected:
    void SetUp() override {
        if (landlock_version() == 0) GTEST_SKIP() << "this kernel has no Landlock";
    }

    std::string reading(const fs::path& path) const {
        return contained(policy, [&] { return opening(path, O_RDONLY); });
    }
    std::string writing(const fs::path& path) const {
        return contained(policy, [&] { return opening(path, O_WRONLY | O_CREAT); });
    }

    test::Ground ground;
    Policy policy{.may_read = {ground / "document", ground / "open"},
                  .may_write = {ground / "work"},
                  .may_start = {},
                  .limits = {}};
};

TEST_F(Files, AreReadWhereThePolicySaysSo) {
    EXPECT_EQ(reading(ground / "document"), "done");
    EXPECT_EQ(reading(ground / "open/file"), "done");
    EXPECT_EQ(reading(ground / "work/file"), "done");
    EXPECT_EQ(reading(ground / "open"), "done");
}

TEST_F(Files, AreReadNowhereElse) {
    EXPECT_EQ(reading(ground / "secret"), "EACCES");
    EXPECT_EQ(reading(ground / "open/../secret"), "EACCES");
    EXPECT_EQ(reading("/etc/passwd"), "EACCES");
    EXPECT_EQ(reading("/proc/self/environ"), "EACCES");
    EXPECT_EQ(reading("/proc/self/root" + (ground / "secret").string()), "EACCES");
}

TEST_F(Files, AreNotReadThroughLinks) {
    fs::create_symlink(ground / "secret", ground / "open/link");
    EXPECT_EQ(reading(ground / "open/link"), "EACCES");
    const auto linked = [&] {
        return outcome(link((ground / "secret").c_str(), (ground / "work/mine").c_str()));
    };
    EXPECT_NE(contained(policy, linked), "done");
}

TEST_F(Files, OfOtherFoldersCannotBeListed) {
    EXPECT_EQ(reading(ground.folder()), "EACCES");
    EXPECT_EQ(reading("/"), "EACCES");
}

TEST_F(Files, AreWrittenWhereThePolicySaysSo) {
    EXPECT_EQ(writing(ground / "work/new"), "done");
    EXPECT_EQ(contained(policy,
                        [&] {
                            fs::create_directory(ground / "work/inner");
                            fs::rename(ground / "work/new", ground / "work/inner/newer");
                            return fs::remove(ground / "work/file") ? "done" : "not removed";
                        }),
              "done");
    EXPECT_TRUE(fs::exists(ground / "work/inner/newer"));
    EXPECT_FALSE(fs::exists(ground / "work/file"));
}

TEST_F(Files, AreWrittenNowhereElse) {
    EXPECT_EQ(writing(ground / "document"), "EACCES");
    EXPECT_EQ(writing(ground / "open/new"), "EACCES");
    EXPECT_EQ(writing(ground / "secret"), "EACCES");
    EXPECT_EQ(contained(policy, [&] { return outcome(unlink((ground / "secret").c_str())); }), "EACCES");
    EXPECT_EQ(
        contained(
            policy,
            [&] { return outcome(rename((ground / "work/file").c_str(), (ground / "open/file").c_str())); }),
        "EACCES");
    EXPECT_EQ(ground.read("secret") + ground.read("document"), "secretdocument");
}

TEST_F(Files, AreLinkedWhereThePolicySaysSo) {
    const auto link = [&] { return outcome(symlink("file", (ground / "work/link").c_str())); };
    EXPECT_EQ(contained(policy, link), "EACCES");
    policy.may_make_sockets = true;
    EXPECT_EQ(contained(policy, link), "done");
}

TEST_F(Files, AreNotShortened) {
    EXPECT_NE(contained(policy, [&] { return outcome(truncate((ground / "document").c_str(), 0)); }), "done");
    EXPECT_EQ(reading(ground / "secret"), "EACCES");
    EXPECT_EQ(ground.read("document"), "document");
}

TEST_F(Files, KeepTheirRightsTimesAndAttributes) {
    EXPECT_EQ(contained(policy,
                        [&] {
                            const int file = open((ground / "document").c_str(), O_RDONLY);
                            return outcome(chmod((ground / "secret").c_str(), 0777)) + " " +
                                   outcome(fchmod(file, 0777)) + " " +
                                   outcome(chown((ground / "secret").c_str(), 1, 1)) + " " +
                                   outcome(utimensat(AT_FDCWD, (ground / "secret").c_str(), nullptr, 0)) +
                                   " " + outcome(fsetxattr(file, "user.x", "", 0, 0));
                        }),
              "EPERM EPERM EPERM EPERM EPERM");
}

TEST_F(Files, ThatAreOpenAlreadyStayUsable) {
    const int secret = open((ground / "secret").c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(contained(policy,
                        [&] {
                            char letter = 0;
                            const auto again = "/proc/self/fd/" + std::to_string(secret);
                            return outcome(pread(secret, &letter, 1, 0)) + " " + opening(again, O_RDONLY);
                        }),
              "done EACCES");
    close(secret);
}

TEST_F(Files, AreGuardedFromThreadsToo) {
    EXPECT_EQ(contained(policy,
                        [&] {
                            std::string result;
                            std::thread([&] { result = opening(ground / "secret", O_RDONLY); }).join();
                            return result;
                        }),
              "EACCES");
}

TEST_F(Files, AreNotGuardedFromSomeThreadsOnly) {
    EXPECT_EQ(test::in_a_process([&] {
                  std::string result;
                  std::thread([&] {
                      try {
                          apply(policy);
                          result = "applied";
                      } catch (const std::system_error&) {
                          result = "refused";
                      }
                  }).join();
                  return result;
              }),
              "refused");
}

TEST_F(Files, StayGuardedUnderAPolicyThatAllowsMore) {
    Policy wider = policy;
    wider.may_read.push_back(ground / "secret");
    EXPECT_EQ(contained(policy,
                        [&] {
                            apply(wider);
                            return opening(ground / "secret", O_RDONLY) + " " +
                                   opening(ground / "document", O_RDONLY);
                        }),
              "EACCES done");
}

TEST_F(Files, AreGuardedByEveryVersionOfTheKernelsInterface) {
    for (int version = 1; version <= landlock_version(); ++version) {
        EXPECT_EQ(test::in_a_process([&] {
                      restrict_files(policy, version);
                      return opening(ground / "secret", O_RDONLY) + " " +
                             opening(ground / "document", O_RDONLY) + " " +
                             opening(ground / "work/made", O_WRONLY | O_CREAT) + " " +
                             opening(ground / "open/made", O_WRONLY | O_CREAT);
                  }),
                  "EACCES done done EACCES")
            << version;
    }
}

TEST_F(Files, ThatAreNotThereAreNoTroubleToAPolicy) {
    policy.may_read.push_back(ground / "missing");
    EXPECT_EQ(reading(ground / "document"), "done");
}

}  // namespace
}  // namespace foliant::hosts::containment
