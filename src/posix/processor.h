#pragma once

#include <cstring>
#include <optional>
#include <sched.h>

namespace foliant::posix {

/// The number of the processor that this thread runs on at the moment; nothing where the system does not say.
inline std::optional<int> current_processor() noexcept {
    const int number = ::sched_getcpu();
    return number < 0 ? std::nullopt : std::optional(number);
}

/// Keeps this thread, and what it starts from now on, on that processor. Where the system refuses, nothing changes.
inline void stay_on(int processor) noexcept {
    cpu_set_t only;
    CPU_ZERO(&only);
    CPU_SET(static_cast<std::size_t>(processor), &only);
    ::sched_setaffinity(0, sizeof only, &only);
}

/// Has another process run on other processors than this thread does. Where there are none, nothing changes.
inline void have_run_elsewhere(pid_t process) noexcept {
    const auto here = current_processor();
    if (!here) return;
    cpu_set_t others;
    std::memset(&others, 0xFF, sizeof others);
    CPU_CLR(static_cast<std::size_t>(*here), &others);
    ::sched_setaffinity(process, sizeof others, &others);
}

}  // namespace foliant::posix
