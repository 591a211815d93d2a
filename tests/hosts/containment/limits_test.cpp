#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include "hosts/containment/contained.h"

namespace foliant::hosts::containment {
namespace {

using test::contained;
using test::outcome;

Policy limited(const Limits& limits) {
    return {.may_read = {"/"}, .may_write = {"/"}, .may_start = {}, .limits = limits};
}

constexpr std::size_t mebibyte = std::size_t{1} << 20U;

#ifndef __SANITIZE_ADDRESS__  // without a limit on memory
std::string allocated(std::size_t bytes) {
    void* const memory = std::malloc(bytes);
    return memory == nullptr ? "refused" : "done";
}

TEST(Limits, EndMemory) {
    const Policy policy = limited({.memory_bytes = 64 * mebibyte});
    EXPECT_EQ(contained(policy, [] { return allocated(16 * mebibyte); }), "done");
    EXPECT_EQ(contained(policy, [] { return allocated(65 * mebibyte); }), "refused");
}

TEST(Limits, EndSharedMemoryToo) {
    EXPECT_EQ(contained(limited({.memory_bytes = 64 * mebibyte}),
                        [] {
                            void* const memory = mmap(nullptr, 4096 * mebibyte, PROT_READ | PROT_WRITE,
                                                      MAP_SHARED | MAP_ANONYMOUS, -1, 0);
                            return memory == MAP_FAILED ? "refused" : "done";
                        }),
              "refused");
}
#endif

TEST(Limits, EndFiles) {
    const test::Ground ground;
    EXPECT_EQ(contained(limited({.file_bytes = 4096}),
                        [&] {
                            const int file = open((ground / "work/file").c_str(), O_WRONLY);
                            const std::string page(4096, 'x');
                            const std::string first = outcome(write(file, page.data(), page.size()));
                            return first + " " + outcome(write(file, page.data(), page.size()));
                        }),
              "done EFBIG");
}

TEST(Limits, EndDescriptors) {
    EXPECT_EQ(contained(limited({.open_files = 20}),
                        [] {
                            int last = 0;
                            while (last >= 0 && last < 100)
                                last = dup(0);
                            return outcome(last);
                        }),
              "EMFILE");
}

TEST(Limits, EndComputing) {
    const std::string end = contained(limited({.cpu_seconds = 1}), []() -> std::string {
        volatile bool endless = true;
        while (endless) {
        }
        return "ended";
    });
    EXPECT_TRUE(end == "signal 24" || end == "signal 9") << end;
}

TEST(Limits, AreNeverRaised) {
    EXPECT_EQ(test::in_a_process([] {
                  const rlimit low{30, 30};
                  setrlimit(RLIMIT_NOFILE, &low);
                  apply(limited({.open_files = 1000}));
                  rlimit now{};
                  getrlimit(RLIMIT_NOFILE, &now);
                  return std::to_string(now.rlim_max);
              }),
              "30");
}

TEST(Limits, LeaveNoCoreFile) {
    EXPECT_EQ(contained(limited({}),
                        [] {
                            rlimit now{};
                            getrlimit(RLIMIT_CORE, &now);
                            return std::to_string(now.rlim_max);
                        }),
              "0");
}

TEST(Enforcement, IsWhatTheKernelOffers) {
    EXPECT_EQ(test::in_a_process([] { return describe(apply(limited({}))); }), describe(offered()));
}

TEST(Enforcement, SaysWhatIsMissing) {
    EXPECT_EQ(shortcomings({7, true}), "");
    EXPECT_EQ(shortcomings({0, true}),
              "The kernel has no Landlock: what reads documents is not kept from other files.");
    EXPECT_NE(shortcomings({3, false}).find("starting programs"), std::string::npos);
    EXPECT_NE(shortcomings({}).find("neither"), std::string::npos);
}

TEST(Enforcement, IsTold) {
    EXPECT_EQ(describe({7, true}), "Landlock (version 7), seccomp");
    EXPECT_EQ(describe({2, false}), "Landlock (version 2)");
    EXPECT_EQ(describe({0, true}), "seccomp");
    EXPECT_EQ(describe({}), "nothing");
}

}  // namespace
}  // namespace foliant::hosts::containment
