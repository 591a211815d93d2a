#include "cli/supervisor.h"

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

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

/// Work that only has a call, without limits.
Ending run(const std::function<int()>& call) {
    return run_supervised({.call = call}, {});
}

Limits ending_in(milliseconds time) {
    return {std::chrono::steady_clock::now() + time, 0};
}

[[noreturn]] void wait_for_ever() {
    while (true)
        pause();
}

TEST(Supervisor, PassesOnTheExitCode) {
    const Ending ending = run([] { return 42; });
    EXPECT_EQ(ending.kind, Ending::Kind::finished);
    EXPECT_EQ(ending.code, 42);
}

TEST(Supervisor, TellsACrashFromAnExit) {
    const Ending ending = run([] {
        std::signal(SIGSEGV, SIG_DFL);
        raise(SIGSEGV);
        return 0;
    });
    EXPECT_EQ(ending.kind, Ending::Kind::crashed);
    EXPECT_EQ(ending.code, SIGSEGV);
}

TEST(Supervisor, TheTimeLimitEndsTheWorkerAndItsChildren) {
    const std::string path = temporary_name("child");
    const auto call = [&]() -> int {
        if (fork() == 0) write_pid(path);
        wait_for_ever();
    };
    const Ending ending = run_supervised({.call = call}, ending_in(milliseconds(500)));
    EXPECT_EQ(ending.kind, Ending::Kind::timed_out);
    EXPECT_TRUE(ends_soon(read_pid(path)));
    unlink(path.c_str());
}

TEST(Supervisor, AnInterruptEndsTheWorkerAndIsTold) {
    const pid_t self = getpid();
    const Ending ending = run([self]() -> int {
        kill(self, SIGINT);
        wait_for_ever();
    });
    EXPECT_EQ(ending.kind, Ending::Kind::interrupted);
    EXPECT_EQ(ending.code, SIGINT);
}

TEST(Supervisor, AWorkerWhoseSupervisorIsKilledCleansUpAndEnds) {
    const std::string pid_file = temporary_name("worker");
    const std::string cleaned = temporary_name("cleaned");
    const pid_t supervisor = fork();
    if (supervisor == 0) {
        const auto call = [&]() -> int {
            write_pid(pid_file);
            wait_for_ever();
        };
        run_supervised({.call = call, .when_orphaned = [&] { write_pid(cleaned); }}, {});
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

TEST(Supervisor, AWorkerWhoseSupervisorIsKilledGoesOnWithNothing) {
    const std::string pid_file = temporary_name("busy-worker");
    const std::string verdict = temporary_name("verdict");
    const pid_t supervisor = fork();
    if (supervisor == 0) {
        std::atomic<int> done = 0;
        const auto call = [&]() -> int {
            write_pid(pid_file);
            while (true)
                ++done;
        };
        const auto when_orphaned = [&] {
            const int before = done;
            std::this_thread::sleep_for(milliseconds(100));
            std::ofstream(verdict) << (done == before ? 1 : 2) << std::flush;
        };
        run_supervised({.call = call, .when_orphaned = when_orphaned}, {});
        _exit(0);
    }
    const pid_t worker = read_pid(pid_file);
    ASSERT_GT(worker, 0);
    kill(supervisor, SIGKILL);
    waitpid(supervisor, nullptr, 0);
    EXPECT_EQ(read_pid(verdict), 1) << "the call goes on while things are put back";
    EXPECT_TRUE(ends_soon(worker));
    unlink(pid_file.c_str());
    unlink(verdict.c_str());
}

/// Writes to that much memory, in this process or divided among two, and then waits.
[[noreturn]] void hold(std::size_t bytes, bool in_two) {
    if (in_two) {
        bytes /= 2;
        fork();
    }
    std::vector<char> held(bytes, 'x');
    wait_for_ever();
}

TEST(Supervisor, TheMemoryLimitCountsAllProcessesOfTheWork) {
    constexpr std::size_t mebibyte = std::size_t{1} << 20U;
    for (const bool in_two : {false, true}) {
        const Work work{.call = [in_two]() -> int { hold(200 * mebibyte, in_two); }};
        Limits limits = ending_in(std::chrono::seconds(30));
        limits.memory_bytes = 150 * mebibyte;
        EXPECT_EQ(run_supervised(work, limits).kind, Ending::Kind::out_of_memory) << in_two;
    }
}

TEST(Supervisor, MemoryThatAForkSharesCountsOnce) {
    constexpr std::size_t mebibyte = std::size_t{1} << 20U;
    const auto call = [] {
        const std::vector<char> held(100 * mebibyte, 'x');
        const pid_t child = fork();
        std::this_thread::sleep_for(milliseconds(400));
        if (child == 0) _exit(0);
        waitpid(child, nullptr, 0);
        return static_cast<int>(held.front());
    };
    Limits limits;
    limits.memory_bytes = 150 * mebibyte;
    const Ending ending = run_supervised({.call = call}, limits);
    EXPECT_EQ(ending.kind, Ending::Kind::finished);
    EXPECT_EQ(ending.code, 'x');
}

TEST(Supervisor, NothingIsLeftOfWhatTheWorkLeftBehindWhenItReturns) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const Ending ending = run([&] {
        int started[2];
        if (pipe(started) != 0) return 1;
        if (fork() == 0) {
            // Takes a while to go away.
            const std::vector<char> memory(std::size_t{300} << 20U, 'x');
            close(started[1]);
            pause();
        }
        close(started[1]);
        char byte = 0;
        return read(started[0], &byte, 1) == 0 ? 0 : 1;
    });
    EXPECT_EQ(ending.code, 0);
    close(ends[1]);
    pollfd end{ends[0], POLLIN, 0};
    EXPECT_EQ(poll(&end, 1, 0), 1) << "the other end is still held";
    close(ends[0]);
}

TEST(Supervisor, SettlesAfterTheEndOfTheWork) {
    std::string steps;
    const auto settle = [&](const Ending& ending) { steps += "settled " + std::to_string(ending.code); };
    run_supervised({.call = [] { return 7; }, .settle = settle}, {});
    EXPECT_EQ(steps, "settled 7");
}

TEST(Supervisor, DoesSomethingElseWhileTheWorkIsUnderWay) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const Work work{.call =
                        [&] {
                            char told = 0;
                            return read(pipe[0], &told, 1) == 1 ? told : 0;
                        },
                    .meanwhile = [&] { EXPECT_EQ(write(pipe[1], "!", 1), 1); }};
    EXPECT_EQ(run_supervised(work, ending_in(milliseconds(5000))).code, '!');
    for (const int end : pipe)
        close(end);
}

TEST(Supervisor, KeepsShortWorkWaitingForNothingElse) {
    bool did_something_else = false;
    const Work work{.call = [] { return 3; }, .meanwhile = [&] { did_something_else = true; }};
    EXPECT_EQ(run_supervised(work, {}).code, 3);
    EXPECT_FALSE(did_something_else);
}

TEST(Supervisor, StartsWhatTakesLongBeforeTheWork) {
    std::string steps;
    const Work work{.call = [&] { return steps == "started" ? 0 : 1; }, .start = [&] { steps = "started"; }};
    EXPECT_EQ(run_supervised(work, {}).code, 0);
    EXPECT_EQ(steps, "") << "that is the worker's";
}

TEST(Supervisor, ASecondInterruptDoesNotStopTheSettling) {
    const std::string settled = temporary_name("settled");
    const pid_t supervisor = fork();
    if (supervisor == 0) {
        const pid_t own = getpid();
        const auto call = [own]() -> int {
            kill(own, SIGINT);
            wait_for_ever();
        };
        const auto settle = [&](const Ending&) {
            kill(own, SIGINT);
            write_pid(settled);
        };
        run_supervised({.call = call, .settle = settle}, {});
        _exit(0);
    }
    waitpid(supervisor, nullptr, 0);
    EXPECT_EQ(read_pid(settled), supervisor);
    unlink(settled.c_str());
}

TEST(Supervisor, AnExceptionThatNobodyCatchesIsACrashWithoutATextOfItsOwn) {
    testing::internal::CaptureStderr();
    const Ending ending = run([]() -> int { throw std::runtime_error("lost"); });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(ending.kind, Ending::Kind::crashed);
    EXPECT_EQ(ending.code, SIGABRT);
}

}  // namespace
}  // namespace foliant::cli
