#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <sys/types.h>

namespace foliant::cli {

/// How supervised work ended.
struct Ending {
    enum class Kind {
        finished,       ///< by itself; `code` is what it returned
        timed_out,      ///< the time limit ended it
        out_of_memory,  ///< the memory limit ended it
        interrupted,    ///< a signal to the command ended it; `code` is the signal
        crashed,        ///< a signal of its own ended it, as a crashing engine does; `code` is the signal
    };
    Kind kind = Kind::finished;
    int code = 0;
    pid_t group = 0;  ///< that the processes of the work were in
};

/// What a call may use up.
struct Limits {
    std::optional<std::chrono::steady_clock::time_point> deadline;
    std::uint64_t memory_bytes = 0;  ///< of all its processes together; 0 is no limit
};

/// Work, and what goes with it.
struct Work {
    /// The work itself; it runs in the worker and returns the exit code, 0 to 255.
    std::function<int()> call;
    /// Runs in the worker before anything else, while it has one thread: starts what takes long to be ready. Raises
    /// nothing. May be empty.
    std::function<void()> start{};
    /// Runs in this process while the work is under way: something short. Raises nothing. Work that ends within
    /// 50 milliseconds does without it. May be empty.
    std::function<void()> meanwhile{};
    /// Runs in this process when no process of the work is left. May be empty.
    std::function<void(const Ending&)> settle{};
    /// When this process is killed without a chance to settle anything, the worker halts its call, wherever that is,
    /// calls this from a thread of its own and ends. May be empty.
    std::function<void()> when_orphaned{};
};

/// Runs work in a process of its own, in a process group of its own, so that it can be ended wherever it is:
/// by a limit, by Ctrl-C, by the end of this process. Whatever happens, no process of that group is left.
///
/// Raises std::system_error when no process can be made.
Ending run_supervised(const Work& work, const Limits& limits);

}  // namespace foliant::cli
