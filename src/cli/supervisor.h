#pragma once

#include <functional>

namespace foliant::cli {

/// How supervised work ended.
struct Ending {
    enum class Kind {
        finished,     ///< by itself; `code` is what it returned
        timed_out,    ///< the time limit ended it
        interrupted,  ///< a signal to the command ended it; `code` is the signal
        crashed,      ///< a signal of its own ended it, as a crashing engine does; `code` is the signal
    };
    Kind kind = Kind::finished;
    int code = 0;
};

/// Runs `work` in a process of its own, in a process group of its own, so that it can be ended wherever it
/// is: by a time limit, by Ctrl-C, by the end of this process. Whatever happens, no process of that group is
/// left.
///
/// `work` returns the exit code, 0 to 255. `timeout_seconds` 0 is no limit. When this process is killed
/// without a chance to clean up, the working one calls `when_orphaned` from a thread of its own and ends.
/// Raises std::system_error when no process can be made.
Ending run_supervised(const std::function<int()>& work, double timeout_seconds,
                      const std::function<void()>& when_orphaned);

}  // namespace foliant::cli
