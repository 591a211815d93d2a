#include "cli/supervisor.h"

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace foliant::cli {
namespace {

sigset_t watched_signals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGCHLD})
        sigaddset(&set, signal);
    return set;
}

/// The worker's side of the supervisor's death: its own death signal is waited for by a thread, because the
/// thread that works may be deep inside an engine.
void watch_for_orphanhood(const std::function<void()>& when_orphaned, pid_t supervisor) {
    sigset_t death;
    sigemptyset(&death);
    sigaddset(&death, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &death, nullptr);
    std::thread([death, when_orphaned] {
        int signal = 0;
        sigwait(&death, &signal);
        when_orphaned();
        kill(0, SIGKILL);
    }).detach();
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != supervisor) raise(SIGTERM);
}

[[noreturn]] void run_worker(const std::function<int()>& work, const std::function<void()>& when_orphaned,
                             const sigset_t& former_mask, pid_t supervisor) {
    setpgid(0, 0);
    sigprocmask(SIG_SETMASK, &former_mask, nullptr);
    // The terminal talks to the supervisor; it decides what an interrupt means.
    std::signal(SIGINT, SIG_IGN);
    watch_for_orphanhood(when_orphaned, supervisor);
    const int code = work();
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
    // Engines inside this process have static destructors that are better not run.
    _exit(code);
}

timespec remaining(const timespec& deadline) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    timespec left{deadline.tv_sec - now.tv_sec, deadline.tv_nsec - now.tv_nsec};
    if (left.tv_nsec < 0) {
        left.tv_nsec += 1'000'000'000;
        --left.tv_sec;
    }
    if (left.tv_sec < 0) left = {0, 0};
    return left;
}

timespec deadline_in(double seconds) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const double whole = std::floor(seconds);
    now.tv_sec += static_cast<time_t>(whole);
    now.tv_nsec += static_cast<long>((seconds - whole) * 1e9);
    if (now.tv_nsec >= 1'000'000'000) {
        now.tv_nsec -= 1'000'000'000;
        ++now.tv_sec;
    }
    return now;
}

void end_group(pid_t worker) {
    kill(-worker, SIGKILL);
    kill(worker, SIGKILL);
    while (waitpid(worker, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Waits for one of three: the worker's end, a signal to this process, the deadline.
Ending supervise(pid_t worker, double timeout_seconds) {
    const sigset_t signals = watched_signals();
    const timespec deadline = deadline_in(timeout_seconds);
    while (true) {
        int status = 0;
        if (waitpid(worker, &status, WNOHANG) == worker) {
            kill(-worker, SIGKILL);  // whatever of its group is left
            if (WIFSIGNALED(status)) return {Ending::Kind::crashed, WTERMSIG(status)};
            return {Ending::Kind::finished, WEXITSTATUS(status)};
        }
        int signal = 0;
        if (timeout_seconds > 0) {
            const timespec left = remaining(deadline);
            signal = sigtimedwait(&signals, nullptr, &left);
        } else {
            signal = sigwaitinfo(&signals, nullptr);
        }
        if (signal < 0 && errno == EAGAIN) {
            end_group(worker);
            return {Ending::Kind::timed_out, 0};
        }
        if (signal > 0 && signal != SIGCHLD) {
            end_group(worker);
            return {Ending::Kind::interrupted, signal};
        }
    }
}

}  // namespace

Ending run_supervised(const std::function<int()>& work, double timeout_seconds,
                      const std::function<void()>& when_orphaned) {
    const sigset_t signals = watched_signals();
    sigset_t former;
    sigprocmask(SIG_BLOCK, &signals, &former);
    // An ignored SIGCHLD, inherited from some parents, would take the worker's exit code away.
    std::signal(SIGCHLD, SIG_DFL);
    const pid_t self = getpid();
    const pid_t worker = fork();
    if (worker < 0) {
        const int error = errno;
        sigprocmask(SIG_SETMASK, &former, nullptr);
        throw std::system_error(error, std::generic_category(), "cannot start a process");
    }
    if (worker == 0) run_worker(work, when_orphaned, former, self);
    setpgid(worker, worker);
    const Ending ending = supervise(worker, timeout_seconds);
    sigprocmask(SIG_SETMASK, &former, nullptr);
    return ending;
}

}  // namespace foliant::cli
