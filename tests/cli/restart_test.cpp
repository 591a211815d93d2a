#include "cli/restart.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace foliant::cli {
namespace {

constexpr const char* variable = "GLIBC_TUNABLES";
constexpr int began_anew = 42;

/// What the program's end tells that a call of this member begins with, in a process of its own.
int ending_of(const std::string& member) {
    const pid_t child = ::fork();
    if (child == 0) {
        std::string program = "tests";
        std::string filter = "--gtest_filter=Restart.DISABLED_SeenFromWithin";
        std::string disabled_too = "--gtest_also_run_disabled_tests";
        std::array<char*, 4> arguments{program.data(), filter.data(), disabled_too.data(), nullptr};
        restart_for_many_objects({"--quiet", member, "in.pdf", "out.txt"}, arguments.data());
        ::_exit(EXIT_SUCCESS);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Runs only as the program that was begun anew.
TEST(Restart, DISABLED_SeenFromWithin) {
    std::array<char*, 1> arguments{};
    if (std::getenv(variable) == nullptr) ::_exit(EXIT_FAILURE);
    restart_for_many_objects({"CreateTextfileFromPDF"}, arguments.data());
    ::_exit(std::getenv(variable) == nullptr ? began_anew : EXIT_FAILURE);
}

TEST(Restart, IsMadeOnceForACallThatReadsTextAndLeavesNoTrace) {
    EXPECT_EQ(ending_of("createtextfilefrompdf"), began_anew);
    EXPECT_EQ(std::getenv(variable), nullptr);
}

TEST(Restart, IsNotMadeForOtherCalls) {
    EXPECT_EQ(ending_of("GetNumPagesPDF"), EXIT_SUCCESS);
}

TEST(Restart, LeavesTheUsersOwnChoice) {
    ::setenv(variable, "glibc.malloc.arena_max=1", 1);
    EXPECT_EQ(ending_of("CreateTextfileFromPDF"), EXIT_SUCCESS);
    EXPECT_STREQ(std::getenv(variable), "glibc.malloc.arena_max=1");
    ::unsetenv(variable);
}

}  // namespace
}  // namespace foliant::cli
