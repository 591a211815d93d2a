#include "hosts/containment/containment.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

#include "hosts/containment/landlock.h"
#include "hosts/containment/system_calls.h"

namespace foliant::hosts::containment {
namespace {

using Resource = decltype(RLIMIT_AS);

void require(bool done, const char* what) {
    if (!done) throw std::system_error(errno, std::generic_category(), what);
}

/// Lowers a limit, never raises it.
void limit(Resource resource, std::uint64_t most) {
    rlimit limits{};
    require(::getrlimit(resource, &limits) == 0, "cannot read a limit");
    limits.rlim_cur = std::min<rlim_t>(limits.rlim_cur, most);
    limits.rlim_max = std::min<rlim_t>(limits.rlim_max, most);
    require(::setrlimit(resource, &limits) == 0, "cannot set a limit");
}

void limit_memory(std::uint64_t bytes) {
#ifndef __SANITIZE_ADDRESS__  // which reserves terabytes
    // Shared memory counts as address space only, where libraries and mapped files take their place too.
    constexpr std::uint64_t for_libraries_and_files = std::uint64_t{2} << 30U;
    limit(RLIMIT_DATA, bytes);
    limit(RLIMIT_AS, bytes + for_libraries_and_files);
#else
    static_cast<void>(bytes);
#endif
}

void apply_limits(const Limits& limits) {
    limit(RLIMIT_CORE, 0);  // it would hold the document
    if (limits.memory_bytes != 0) limit_memory(limits.memory_bytes);
    if (limits.open_files != 0) limit(RLIMIT_NOFILE, limits.open_files);
    if (limits.cpu_seconds != 0) limit(RLIMIT_CPU, limits.cpu_seconds);
    if (limits.file_bytes != 0) {
        limit(RLIMIT_FSIZE, limits.file_bytes);
        std::signal(SIGXFSZ, SIG_IGN);  // an error to report, not a death
    }
}

/// Of root's privileges only those to read and write files stay, because the documents may be somebody
/// else's; which files is the policy's word.
void drop_privileges() {
    require(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0, "cannot give privileges up");
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3]{};
    require(::syscall(SYS_capget, &header, sets) == 0, "cannot read privileges");
    constexpr std::uint32_t kept = 1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH;
    sets[0].effective &= kept;
    sets[0].permitted &= kept;
    sets[0].inheritable = 0;
    sets[1] = {};
    require(::syscall(SYS_capset, &header, sets) == 0, "cannot give privileges up");
}

/// Files are guarded from one thread and what it starts: another one would go free.
void require_one_thread() {
    constexpr const char* threads = "/proc/self/task";
    // A folder has a link from each folder in it, and two more; to read this one takes ten times as long.
    struct stat status {};
    if (::stat(threads, &status) == 0 && status.st_nlink == 2 + 1) return;
    std::error_code out_of_sight;  // for a process that is contained already
    const std::filesystem::directory_iterator listed(threads, out_of_sight);
    if (std::distance(begin(listed), end(listed)) > 1)
        throw std::system_error(EBUSY, std::generic_category(), "cannot contain a process with threads");
}

}  // namespace

Enforcement offered() noexcept {
    return {landlock_version(), can_filter_calls()};
}

Enforcement apply(const Policy& policy) {
    const Enforcement enforcement = offered();
    require_one_thread();
    drop_privileges();
    apply_limits(policy.limits);
    if (enforcement.landlock > 0) restrict_files(policy, enforcement.landlock);
    if (enforcement.calls) filter_calls(policy);
    return enforcement;
}

std::string shortcomings(const Enforcement& enforcement) {
    if (enforcement.landlock == 0 && !enforcement.calls)
        return "The kernel has neither Landlock nor seccomp: what reads documents is kept from nothing but "
               "by "
               "its own settings.";
    if (enforcement.landlock == 0)
        return "The kernel has no Landlock: what reads documents is not kept from other files.";
    if (!enforcement.calls)
        return "The kernel has no seccomp: what reads documents is not kept from starting programs.";
    return {};
}

std::string describe(const Enforcement& enforcement) {
    std::string text;
    if (enforcement.landlock > 0) text = "Landlock (version " + std::to_string(enforcement.landlock) + ")";
    if (enforcement.calls) text += text.empty() ? "seccomp" : ", seccomp";
    return text.empty() ? "nothing" : text;
}

}  // namespace foliant::hosts::containment
