#include "cli/supervisor.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <iostream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

#include "cli/memory_use.h"

namespace foliant::cli {

using Clock = std::chrono::steady_clock;

namespace {

constexpr std::chrono::milliseconds memory_look_every{100};
constexpr std::chrono::milliseconds short_work{50};  // nothing is done beside it that could hold it up

sigset_t watched_signals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGCHLD})
        sigaddset(&set, signal);
    return set;
}

std::atomic<bool> is_halted = false;

extern "C" void stay_halted(int) {
    is_halted = true;
    while (true)
        ::pause();
}

/// Brings a thread of this process to a halt, wherever it is. One that the kernel is busy for is waited for, a second at
/// most.
void halt(pthread_t thread) {
    constexpr int most_looks = 1000;  // one a millisecond
    std::signal(SIGUSR1, stay_halted);
    pthread_kill(thread, SIGUSR1);
    for (int look = 0; !is_halted && look < most_looks; ++look)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

/// The worker's side of the supervisor's death: its own death signal is waited for by a thread, because the
/// thread that works may be deep inside an engine. That one is halted first, so that what is put back is not deleted by the
/// next step of a member.
void watch_for_orphanhood(const std::function<void()>& when_orphaned, pid_t supervisor) {
    sigset_t death;
    sigemptyset(&death);
    sigaddset(&death, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &death, nullptr);
    std::thread([death, when_orphaned, working = pthread_self()] {
        constexpr unsigned most_seconds = 10;
        int signal = 0;
        sigwait(&death, &signal);
        if (when_orphaned) {
            alarm(most_seconds);  // the end, should the halted thread have a lock that is needed here
            halt(working);
            when_orphaned();
        }
        kill(0, SIGKILL);
    }).detach();
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != supervisor) raise(SIGTERM);
}

[[noreturn]] void run_worker(const Work& work, const sigset_t& former_mask, pid_t supervisor) noexcept {
    setpgid(0, 0);
    sigprocmask(SIG_SETMASK, &former_mask, nullptr);
    // The terminal talks to the supervisor; it decides what an interrupt means.
    std::signal(SIGINT, SIG_IGN);
    // An exception that nobody catches, in a thread of an engine for example, is told by the supervisor in
    // words of its own.
    std::set_terminate([] { std::abort(); });
    if (work.start) work.start();
    watch_for_orphanhood(work.when_orphaned, supervisor);
    const int code = work.call();
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
    // Engines inside this process have static destructors that are better not run.
    _exit(code);
}

/// Waits until nothing of the worker's group is left: a process that is being killed may still be writing.
/// Those that the worker has left behind are this process's children now.
void wait_for_group(pid_t worker) {
    while (waitpid(-worker, nullptr, 0) > 0 || errno == EINTR) {
    }
}

void end_group(pid_t worker) {
    kill(-worker, SIGKILL);
    kill(worker, SIGKILL);
    wait_for_group(worker);
}

/// Waits until a watched signal comes or the time is over; the signal, or 0.
int wait_for_signal(std::optional<Clock::time_point> until) {
    const sigset_t signals = watched_signals();
    int signal = 0;
    if (until) {
        const auto left = std::max(Clock::duration(0), *until - Clock::now());
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        const timespec time{seconds.count(), std::chrono::nanoseconds(left - seconds).count()};
        signal = sigtimedwait(&signals, nullptr, &time);
    } else {
        signal = sigwaitinfo(&signals, nullptr);
    }
    return std::max(signal, 0);
}

/// When something has to be looked at, whether or not a signal comes.
std::optional<Clock::time_point> next_look(const Limits& limits) {
    if (limits.memory_bytes == 0) return limits.deadline;
    const Clock::time_point look = Clock::now() + memory_look_every;
    return limits.deadline ? std::min(look, *limits.deadline) : look;
}

/// The limit that was hit, if one was.
std::optional<Ending> limit_hit(pid_t worker, const Limits& limits) {
    if (limits.deadline && Clock::now() >= *limits.deadline) return Ending{.kind = Ending::Kind::timed_out};
    if (limits.memory_bytes > 0 && memory_use(worker, limits.memory_bytes) > limits.memory_bytes) {
        return Ending{.kind = Ending::Kind::out_of_memory};
    }
    return std::nullopt;
}

/// Waits for one of three: the worker's end, a signal to this process, a limit. Does what can be done meanwhile.
Ending supervise(pid_t worker, const Work& work, const Limits& limits) {
    const Clock::time_point no_longer_short = Clock::now() + short_work;
    bool to_do_meanwhile = work.meanwhile != nullptr;
    while (true) {
        int status = 0;
        if (waitpid(worker, &status, WNOHANG) == worker) {
            kill(-worker, SIGKILL);  // whatever of its group is left
            wait_for_group(worker);
            if (WIFSIGNALED(status)) return {.kind = Ending::Kind::crashed, .code = WTERMSIG(status)};
            return {.kind = Ending::Kind::finished, .code = WEXITSTATUS(status)};
        }
        const auto look = next_look(limits);
        const int signal = wait_for_signal(
            to_do_meanwhile ? std::min(no_longer_short, look.value_or(no_longer_short)) : look);
        if (signal == SIGCHLD) continue;
        if (to_do_meanwhile && Clock::now() >= no_longer_short) {
            work.meanwhile();
            to_do_meanwhile = false;
        }
        const auto ending = signal > 0 ? Ending{.kind = Ending::Kind::interrupted, .code = signal}
                                       : limit_hit(worker, limits);
        if (!ending) continue;
        end_group(worker);
        return *ending;
    }
}

/// Keeps the watched signals from ending this process, as long as it lives.
class HeldSignals {
  public:
    HeldSignals() {
        const sigset_t signals = watched_signals();
        sigprocmask(SIG_BLOCK, &signals, &former_);
        // An ignored SIGCHLD, inherited from some parents, would take the worker's exit code away.
        std::signal(SIGCHLD, SIG_DFL);
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;
    ~HeldSignals() { sigprocmask(SIG_SETMASK, &former_, nullptr); }

    const sigset_t& former() const { return former_; }

    /// Forgets those that have come meanwhile: who interrupts twice, or closes the terminal behind a Ctrl-C, is
    /// told what became of the call all the same.
    void forget() const {
        const sigset_t signals = watched_signals();
        const timespec at_once{};
        while (sigtimedwait(&signals, nullptr, &at_once) > 0) {
        }
    }

  private:
    sigset_t former_{};
};

}  // namespace

Ending run_supervised(const Work& work, const Limits& limits) {
    const HeldSignals held;
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    const pid_t self = getpid();
    const pid_t worker = fork();
    if (worker < 0) throw std::system_error(errno, std::generic_category(), "cannot start a process");
    if (worker == 0) run_worker(work, held.former(), self);
    setpgid(worker, worker);
    Ending ending = supervise(worker, work, limits);
    ending.group = worker;
    if (work.settle) work.settle(ending);
    if (ending.kind == Ending::Kind::interrupted) held.forget();
    return ending;
}

}  // namespace foliant::cli
