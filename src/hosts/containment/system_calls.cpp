#include "hosts/containment/system_calls.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <span>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace foliant::hosts::containment {
namespace {

#if defined(__x86_64__) && !defined(__ILP32__)
constexpr std::uint32_t architecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t architecture = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t architecture = 0;
#endif

/// The newest call that was looked at when these lists were made (set_mempolicy_home_node). What came later
/// does not exist for the process; libraries live with that, because older kernels say the same. It takes in
/// the calls of x86_64's second interface too, whose numbers are larger.
constexpr std::uint32_t newest_known = 450;

/// Other processes, their memory, and what would outlive this one.
constexpr int about_processes[] = {
    SYS_ptrace,
    SYS_process_vm_readv,
    SYS_process_vm_writev,
    SYS_process_madvise,
    SYS_process_mrelease,
    SYS_kcmp,
    SYS_pidfd_open,
    SYS_pidfd_getfd,
    SYS_pidfd_send_signal,
    SYS_tkill,
    SYS_rt_sigqueueinfo,
    SYS_rt_tgsigqueueinfo,
    SYS_setsid,
    SYS_setpgid,
    SYS_shmget,
    SYS_shmat,
    SYS_shmctl,
    SYS_msgget,
    SYS_msgsnd,
    SYS_msgrcv,
    SYS_msgctl,
    SYS_semget,
    SYS_semop,
    SYS_semtimedop,
    SYS_semctl,
    SYS_mq_open,
    SYS_mq_unlink,
};

constexpr int that_start_processes[] = {
    SYS_execve,
    SYS_execveat,
#ifdef SYS_fork
    SYS_fork,
#endif
#ifdef SYS_vfork
    SYS_vfork,
#endif
};

constexpr int that_start_threads[] = {SYS_clone, SYS_clone3};

constexpr int about_sockets[] = {
    SYS_socket, SYS_connect, SYS_bind, SYS_listen, SYS_accept, SYS_accept4,
};

/// What of other people's files Landlock does not guard: rights, owners, times, and lengths before its
/// version 3. `fchmod` and its like reach files that are open for reading only.
constexpr int about_files[] = {
    SYS_truncate,
    SYS_fchmod,
    SYS_fchmodat,
    SYS_fchown,
    SYS_fchownat,
    SYS_utimensat,
    SYS_setxattr,
    SYS_lsetxattr,
    SYS_fsetxattr,
    SYS_removexattr,
    SYS_lremovexattr,
    SYS_fremovexattr,
    SYS_inotify_add_watch,
    SYS_fanotify_init,
    SYS_fanotify_mark,
    SYS_name_to_handle_at,
    SYS_open_by_handle_at,
#ifdef SYS_chmod
    SYS_chmod,
    SYS_chown,
    SYS_lchown,
    SYS_utime,
    SYS_utimes,
    SYS_futimesat,
#endif
};

/// The machine itself, and the corners of the kernel that attackers like best.
constexpr int about_the_machine[] = {
    SYS_bpf,
    SYS_perf_event_open,
    SYS_add_key,
    SYS_request_key,
    SYS_keyctl,
    SYS_mount,
    SYS_umount2,
    SYS_pivot_root,
    SYS_chroot,
    SYS_move_mount,
    SYS_open_tree,
    SYS_fsopen,
    SYS_fsconfig,
    SYS_fsmount,
    SYS_fspick,
    SYS_mount_setattr,
    SYS_unshare,
    SYS_setns,
    SYS_swapon,
    SYS_swapoff,
    SYS_reboot,
    SYS_init_module,
    SYS_finit_module,
    SYS_delete_module,
    SYS_kexec_load,
    SYS_acct,
    SYS_quotactl,
    SYS_quotactl_fd,
    SYS_syslog,
    SYS_sethostname,
    SYS_setdomainname,
    SYS_settimeofday,
    SYS_clock_settime,
    SYS_adjtimex,
    SYS_clock_adjtime,
    SYS_vhangup,
    SYS_personality,
    SYS_nfsservctl,
    SYS_lookup_dcookie,
#ifdef SYS_iopl
    SYS_iopl,
    SYS_ioperm,
    SYS_modify_ldt,
#endif
#ifdef SYS_kexec_file_load
    SYS_kexec_file_load,
#endif
};

/// Calls that libraries try and do without.
constexpr int absent[] = {
    SYS_io_uring_setup, SYS_io_uring_enter, SYS_io_uring_register, SYS_userfaultfd, SYS_memfd_secret,
};

constexpr std::uint32_t refused(int error) {
    return SECCOMP_RET_ERRNO | (static_cast<std::uint32_t>(error) & SECCOMP_RET_DATA);
}

/// A filter in the kernel's language, written from top to bottom.
class Filter {
  public:
    void load(std::size_t offset) { add(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset)); }
    void end(std::uint32_t verdict) { add(BPF_RET | BPF_K, verdict); }

    void end_if(std::uint32_t value, std::uint32_t verdict) { end_on(BPF_JEQ, value, true, verdict); }
    void end_unless(std::uint32_t value, std::uint32_t verdict) { end_on(BPF_JEQ, value, false, verdict); }
    void end_if_above(std::uint32_t value, std::uint32_t verdict) { end_on(BPF_JGT, value, true, verdict); }
    void end_unless_set(std::uint32_t bits, std::uint32_t verdict) { end_on(BPF_JSET, bits, false, verdict); }

    /// Refuses calls. The kernel runs a new filter for every number that there is before it takes it, so runs of numbers
    /// are sorted into groups, and a number is compared with those of one.
    void refuse(std::initializer_list<std::span<const int>> calls, int error) {
        const std::vector<Run> runs = runs_of(calls);
        std::vector<std::size_t> ends;
        for (std::span<const Run> rest = runs; !rest.empty();) {
            constexpr std::size_t most_in_a_group = 5;
            const auto group = rest.first(std::min(most_in_a_group, rest.size()));
            rest = rest.subspan(group.size());
            constexpr std::size_t comparisons = 2;  // of a run
            auto to_verdict = static_cast<std::uint8_t>(comparisons * group.size() + 1);
            add(BPF_JMP | BPF_JGT | BPF_K, group.back().last, static_cast<std::uint8_t>(to_verdict + 1));
            for (const Run& run : group) {
                add(BPF_JMP | BPF_JGE | BPF_K, run.first, 0, 1);
                to_verdict = static_cast<std::uint8_t>(to_verdict - comparisons);
                add(BPF_JMP | BPF_JGT | BPF_K, run.last, 0, to_verdict);
            }
            ends.push_back(code_.size());
            add(BPF_JMP | BPF_JA, 0);
            end(refused(error));
        }
        for (const std::size_t leap : ends)
            code_[leap].k = static_cast<std::uint32_t>(code_.size() - leap - 1);
    }

    /// Lets a call go by only when `judge` finds nothing against its arguments; those behind it then see the
    /// call's number again.
    template <typename Judge>
    void examine(long call, Judge judge) {
        const std::size_t jump = code_.size();
        add(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call));
        judge();
        end(SECCOMP_RET_ALLOW);
        code_[jump].jf = static_cast<std::uint8_t>(code_.size() - jump - 1);
    }

    void install() {
        const sock_fprog program{static_cast<unsigned short>(code_.size()), code_.data()};
        if (::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_TSYNC, &program) != 0)
            throw std::system_error(errno, std::generic_category(), "cannot filter system calls");
    }

  private:
    /// Numbers that follow each other.
    struct Run {
        std::uint32_t first;
        std::uint32_t last;
    };

    static std::vector<Run> runs_of(std::initializer_list<std::span<const int>> calls) {
        std::vector<std::uint32_t> numbers;
        for (const auto list : calls)
            numbers.insert(numbers.end(), list.begin(), list.end());
        std::ranges::sort(numbers);
        std::vector<Run> runs;
        for (const std::uint32_t number : numbers) {
            if (!runs.empty() && runs.back().last + 1 == number)
                ++runs.back().last;
            else
                runs.push_back({number, number});
        }
        return runs;
    }

    void add(int code, std::uint32_t value, std::uint8_t if_true = 0, std::uint8_t if_false = 0) {
        code_.push_back({static_cast<std::uint16_t>(code), if_true, if_false, value});
    }
    void end_on(int test, std::uint32_t value, bool outcome, std::uint32_t verdict) {
        add(BPF_JMP | test | BPF_K, value, outcome ? 0 : 1, outcome ? 1 : 0);
        end(verdict);
    }

    std::vector<sock_filter> code_;
};

/// The low half of a call's argument; both machines are little-endian.
constexpr std::size_t argument(std::size_t number) {
    return offsetof(seccomp_data, args) + number * sizeof(std::uint64_t);
}

/// Threads, and no processes.
void allow_threads_only(Filter& filter) {
    filter.end_if(SYS_clone3, refused(ENOSYS));  // its flags are out of sight; libraries then take the other
    filter.examine(SYS_clone, [&] {
        filter.load(argument(0));
        filter.end_unless_set(CLONE_THREAD, refused(EPERM));
    });
}

void allow_signals_to_itself_only(Filter& filter) {
    const auto self = static_cast<std::uint32_t>(::getpid());
    for (const long call : {SYS_kill, SYS_tgkill})
        filter.examine(call, [&] {
            filter.load(argument(0));
            filter.end_unless(self, refused(EPERM));
        });
}

/// No keystrokes into the terminal that the command was started from.
void guard_the_terminal(Filter& filter) {
    filter.examine(SYS_ioctl, [&] {
        filter.load(argument(1));
        filter.end_if(TIOCSTI, refused(EPERM));
        filter.end_if(TIOCLINUX, refused(EPERM));
    });
}

/// It cannot undo that it ends with its parent.
void guard_its_end(Filter& filter) {
    filter.examine(SYS_prctl, [&] {
        filter.load(argument(0));
        filter.end_if(PR_SET_PDEATHSIG, refused(EPERM));
    });
}

}  // namespace

bool can_filter_calls() noexcept {
    const std::uint32_t action = SECCOMP_RET_ERRNO;
    return architecture != 0 && ::syscall(SYS_seccomp, SECCOMP_GET_ACTION_AVAIL, 0, &action) == 0;
}

void filter_calls(const Policy& policy) {
    Filter filter;
    filter.load(offsetof(seccomp_data, arch));
    filter.end_unless(architecture, SECCOMP_RET_KILL_PROCESS);
    filter.load(offsetof(seccomp_data, nr));
    filter.end_if_above(newest_known, refused(ENOSYS));
    filter.refuse({absent}, ENOSYS);
    if (!policy.may_connect) filter.refuse({about_sockets}, EACCES);
    if (!policy.may_start.empty()) {
        filter.refuse({about_processes, about_files, about_the_machine}, EPERM);
    } else {
        filter.refuse({about_processes, about_files, about_the_machine, that_start_processes}, EPERM);
        if (policy.may_make_threads)
            allow_threads_only(filter);
        else
            filter.refuse({that_start_threads}, EAGAIN);
        allow_signals_to_itself_only(filter);
        guard_its_end(filter);
    }
    guard_the_terminal(filter);
    filter.end(SECCOMP_RET_ALLOW);
    filter.install();
}

}  // namespace foliant::hosts::containment
