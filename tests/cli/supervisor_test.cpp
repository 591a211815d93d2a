#include "cli/supervisor.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace foliant::cli {
namespace {

using std::chrono::milliseconds;

std::string temporary_name(const char* name) {
    return testing::TempDir() + "foliant-" + name + "-" + std::to_string(getpid());
}

void write_pid(const std::string& path) {
    std::ofstream(path) << getpid() << std::flush;
}

pid_t read_pid(const std::string& path) {
    pid_t pid = 0;
    for (int i = 0; i < 500 && pid == 0; ++i) {
        std::ifstream(path) >> pid;
        if (pid == 0) std::this_thread::sleep_for(milliseconds(10));
    }
    return pid;
}

/// An orphan that has ended stays listed until whoever adopted it looks; its state tells.
bool has_ended(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string number;
    std::string name;
    std::string state;
    return !(stat >> number >> name >> state) || state == "Z" || state == "X";
}

bool ends_soon(pid_t pid) {
    for (int i = 0; i < 500; ++i) {
        if (has_ended(pid)) return true;
        std::this_thread::sleep_for(milliseconds(10));
    }
    return false;
}

[[noreturn]] void wait_for_ever() {
    while (true)
        pause();
}

TEST(Supervisor, PassesOnTheExitCode) {
    const Ending ending = run_supervised([] { return 42; }, 0, [] {});
    EXPECT_EQ(ending.kind, Ending::Kind::finished);
    EXPECT_EQ(ending.code, 42);
}

TEST(Supervisor, TellsACrashFromAnExit) {
    const Ending ending = run_supervised(
        [] {
            std::signal(SIGSEGV, SIG_DFL);
            raise(SIGSEGV);
            return 0;
        },
        0, [] {});
    EXPECT_EQ(ending.kind, Ending::Kind::crashed);
    EXPECT_EQ(ending.code, SIGSEGV);
}

TEST(Supervisor, TheTimeLimitEndsTheWorkerAndItsChildren) {
    const std::string path = temporary_name("child");
    const Ending ending = run_supervised(
        [&]() -> int {
            if (fork() == 0) {
                write_pid(path);
                wait_for_ever();
            }
            wait_for_ever();
        },
        0.5, [] {});
    EXPECT_EQ(ending.kind, Ending::Kind::timed_out);
    EXPECT_TRUE(ends_soon(read_pid(path)));
    unlink(path.c_str());
}

TEST(Supervisor, AnInterruptEndsTheWorkerAndIsTold) {
    const pid_t self = getpid();
    const Ending ending = run_supervised(
        [self]() -> int {
            kill(self, SIGINT);
            wait_for_ever();
        },
        0, [] {});
    EXPECT_EQ(ending.kind, Ending::Kind::interrupted);
    EXPECT_EQ(ending.code, SIGINT);
}

TEST(Supervisor, AWorkerWhoseSupervisorIsKilledCleansUpAndEnds) {
    const std::string pid_file = temporary_name("worker");
    const std::string cleaned = temporary_name("cleaned");
    const pid_t supervisor = fork();
    if (supervisor == 0) {
        run_supervised(
            [&]() -> int {
                write_pid(pid_file);
                wait_for_ever();
            },
            0, [&] { write_pid(cleaned); });
        _exit(0);
    }
    const pid_t worker = read_pid(pid_file);
    ASSERT_GT(worker, 0);
    kill(supervisor, SIGKILL);
    waitpid(supervisor, nullptr, 0);
    EXPECT_EQ(read_pid(cleaned), worker);
    EXPECT_TRUE(ends_soon(worker));
    unlink(pid_file.c_str());
    unlink(cleaned.c_str());
}

}  // namespace
}  // namespace foliant::cli
