#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "hosts/containment/contained.h"
#include "hosts/containment/system_calls.h"

namespace foliant::hosts::containment {
namespace {

using test::contained;
using test::outcome;

class Calls : public testing::Test {
  protected:
    void SetUp() override {
        if (!can_filter_calls()) GTEST_SKIP() << "this kernel filters no system calls";
    }
    Policy policy{.may_read = {"/"}, .may_write = {}, .may_start = {}, .limits = {}};
};

std::string spawned(const char* program) {
    pid_t child = 0;
    char* arguments[] = {const_cast<char*>(program), nullptr};
    if (const int error = posix_spawn(&child, program, nullptr, nullptr, arguments, nullptr); error != 0)
        return strerrorname_np(error);
    int status = 0;
    waitpid(child, &status, 0);
    return "status " + std::to_string(WEXITSTATUS(status));
}

TEST_F(Calls, MakeNoProcess) {
    EXPECT_EQ(contained(policy, [] { return outcome(fork()); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(syscall(SYS_clone, SIGCHLD, 0, 0, 0, 0)); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return spawned("/bin/true"); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(execl("/bin/true", "true", nullptr)); }), "EPERM");
}

TEST_F(Calls, MakeThreads) {
    EXPECT_EQ(contained(policy,
                        [] {
                            std::string result;
                            std::thread([&] { result = "done"; }).join();
                            return result;
                        }),
              "done");
}

TEST_F(Calls, MakeNoThreadsWhereThePolicySaysSo) {
    policy.may_make_threads = false;
    const auto one_more = [] {
        return outcome([] {
            try {
                std::thread([] {}).join();
                return 0;
            } catch (const std::system_error& refusal) {
                errno = refusal.code().value();
                return -1;
            }
        }());
    };
    EXPECT_EQ(contained(policy, one_more), "EAGAIN");
}

TEST_F(Calls, StartTheProgramsOfThePolicyOnly) {
    policy.may_start = {"/bin/true"};
    EXPECT_EQ(contained(policy, [] { return spawned("/bin/true"); }), "status 0");
    if (offered().landlock == 0) return;
    EXPECT_EQ(contained(policy, [] { return spawned("/bin/sh"); }), "EACCES");
}

TEST_F(Calls, KeepToThePolicyInThePrograms) {
    if (offered().landlock == 0) GTEST_SKIP() << "this kernel has no Landlock";
    const test::Ground ground;
    policy = {.may_read = {"/lib", "/usr/lib", "/etc/ld.so.cache"},
              .may_write = {},
              .may_start = {"/bin/cat"},
              .limits = {}};
    EXPECT_EQ(contained(policy,
                        [&] {
                            pid_t child = 0;
                            std::string file = ground / "secret";
                            char* arguments[] = {const_cast<char*>("cat"), file.data(), nullptr};
                            posix_spawn_file_actions_t quiet;
                            posix_spawn_file_actions_init(&quiet);
                            posix_spawn_file_actions_addclose(&quiet, STDERR_FILENO);
                            if (posix_spawn(&child, "/bin/cat", &quiet, nullptr, arguments, nullptr) != 0)
                                return std::string("not started");
                            int status = 0;
                            waitpid(child, &status, 0);
                            return std::to_string(WEXITSTATUS(status));
                        }),
              "1");
}

TEST_F(Calls, ReachNobodyBySocket) {
    EXPECT_EQ(contained(policy, [] { return outcome(socket(AF_INET, SOCK_STREAM, 0)); }), "EACCES");
    EXPECT_EQ(contained(policy, [] { return outcome(socket(AF_INET6, SOCK_DGRAM, 0)); }), "EACCES");
    EXPECT_EQ(contained(policy, [] { return outcome(socket(AF_UNIX, SOCK_STREAM, 0)); }), "EACCES");
    policy.may_connect = true;
    EXPECT_EQ(contained(policy, [] { return outcome(socket(AF_INET, SOCK_STREAM, 0)); }), "done");
}

TEST_F(Calls, LeaveOtherProcessesAlone) {
    const pid_t parent = getpid();
    EXPECT_EQ(contained(policy, [&] { return outcome(kill(parent, 0)); }), "EPERM");
    EXPECT_EQ(contained(policy, [&] { return outcome(kill(-1, 0)); }), "EPERM");
    EXPECT_EQ(contained(policy, [&] { return outcome(kill(0, 0)); }), "EPERM");
    EXPECT_EQ(contained(policy, [&] { return outcome(ptrace(PTRACE_ATTACH, parent, nullptr, nullptr)); }),
              "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(setsid()); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(prctl(PR_SET_PDEATHSIG, 0)); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(shmget(IPC_PRIVATE, 4096, IPC_CREAT)); }), "EPERM");
}

TEST_F(Calls, CanStillAbort) {
    EXPECT_EQ(contained(policy,
                        []() -> std::string {
                            signal(SIGABRT, SIG_DFL);
                            abort();
                        }),
              "signal 6");
}

TEST_F(Calls, ChangeNothingOfTheMachine) {
    EXPECT_EQ(contained(policy, [] { return outcome(mount("none", "/mnt", "tmpfs", 0, nullptr)); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(syscall(SYS_bpf, 0, nullptr, 0)); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(unshare(CLONE_NEWUSER)); }), "EPERM");
    EXPECT_EQ(contained(policy, [] { return outcome(syscall(SYS_io_uring_setup, 1, nullptr)); }), "ENOSYS");
}

TEST_F(Calls, TypeNothingIntoTheTerminal) {
    EXPECT_EQ(contained(policy, [] { return outcome(ioctl(0, TIOCSTI, "x")); }), "EPERM");
}

TEST_F(Calls, ThatAreNewerThanTheFilterDoNotExist) {
    constexpr long fchmodat2 = 452;
    EXPECT_EQ(contained(policy, [] { return outcome(syscall(fchmodat2, AT_FDCWD, "/none", 0777, 0)); }),
              "ENOSYS");
}

#ifdef __x86_64__
TEST_F(Calls, OfTheSecondInterfaceDoNotExist) {
    constexpr long second_interface = 0x40000000;
    EXPECT_EQ(contained(policy, [] { return outcome(syscall(second_interface + SYS_getpid)); }), "ENOSYS");
}

TEST_F(Calls, OfTheOldInterfaceEndTheProcess) {
    EXPECT_EQ(contained(policy,
                        []() -> std::string {
                            long result = 20;  // getpid, by its 32-bit number
                            asm volatile("int $0x80" : "+a"(result) : : "memory");
                            return "still here";
                        }),
              "signal 31");
}
#endif

TEST(Privileges, AreGoneButThoseToReadAndWriteFiles) {
    EXPECT_EQ(contained({.may_read = {"/"}, .may_write = {}, .may_start = {}, .limits = {}},
                        [] { return outcome(sethostname("other", 5)); }),
              "EPERM");
    EXPECT_EQ(contained({.may_read = {"/"}, .may_write = {}, .may_start = {}, .limits = {.open_files = 50}},
                        [] {
                            const rlimit more{100, 100};
                            return outcome(setrlimit(RLIMIT_NOFILE, &more));
                        }),
              "EPERM");
}

}  // namespace
}  // namespace foliant::hosts::containment
