#include "hosts/containment/landlock.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

#include "posix/file_descriptor.h"

namespace foliant::hosts::containment {

using posix::FileDescriptor;

namespace {

// The kernel's interface by its numbers: the system's header may be older than the kernel that runs, and what
// such a kernel can enforce is worth having.
constexpr long create_ruleset_call = 444;
constexpr long add_rule_call = 445;
constexpr long restrict_self_call = 446;
constexpr unsigned ask_version = 1;
constexpr int rule_path_beneath = 1;

enum Access : std::uint64_t {
    execute = 1U << 0U,
    write_file = 1U << 1U,
    read_file = 1U << 2U,
    read_dir = 1U << 3U,
    remove_dir = 1U << 4U,
    remove_file = 1U << 5U,
    make_char = 1U << 6U,
    make_dir = 1U << 7U,
    make_reg = 1U << 8U,
    make_sock = 1U << 9U,
    make_fifo = 1U << 10U,
    make_block = 1U << 11U,
    make_sym = 1U << 12U,
    refer = 1U << 13U,      // from version 2
    truncate = 1U << 14U,   // from version 3
    ioctl_dev = 1U << 15U,  // from version 5
};
constexpr std::uint64_t bind_or_connect_tcp = 3;           // from version 4
constexpr std::uint64_t abstract_sockets_and_signals = 3;  // from version 6

struct RulesetAttributes {
    std::uint64_t files;
    std::uint64_t network;
    std::uint64_t scoped;
};

struct [[gnu::packed]] PathRule {
    std::uint64_t allowed;
    std::int32_t parent;
};

/// What makes sense for a file that is no folder; the kernel refuses a rule that asks for more.
constexpr std::uint64_t for_files = execute | write_file | read_file | truncate | ioctl_dev;

constexpr std::uint64_t reading = read_file | read_dir;
constexpr std::uint64_t writing =
    reading | write_file | remove_dir | remove_file | make_dir | make_reg | refer | truncate;
constexpr std::uint64_t starting = execute | read_file;

/// Starting a program is starting the loader that its libraries need.
constexpr const char* loaders[] = {"/lib64/ld-linux-x86-64.so.2", "/lib/ld-linux-aarch64.so.1"};

/// Everything that a version knows: what is known and not allowed is refused.
std::uint64_t known_to(int version) {
    std::uint64_t known = (make_sym << 1U) - 1;
    if (version >= 2) known |= refer;
    if (version >= 3) known |= truncate;
    if (version >= 5) known |= ioctl_dev;
    return known;
}

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

FileDescriptor make_ruleset(const Policy& policy, int version) {
    RulesetAttributes attributes{known_to(version), 0, 0};
    // An older kernel takes a shorter structure, and a longer one if the rest is zero.
    if (version >= 4 && !policy.may_connect) attributes.network = bind_or_connect_tcp;
    if (version >= 6 && !policy.may_connect) attributes.scoped = abstract_sockets_and_signals;
    const std::size_t size = version >= 6   ? sizeof attributes
                             : version >= 4 ? offsetof(RulesetAttributes, scoped)
                                            : offsetof(RulesetAttributes, network);
    FileDescriptor ruleset(static_cast<int>(::syscall(create_ruleset_call, &attributes, size, 0)));
    if (!ruleset) fail("cannot restrict files");
    return ruleset;
}

void allow(const FileDescriptor& ruleset, const std::filesystem::path& path, std::uint64_t access,
           int version) {
    const FileDescriptor place(::open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat status {};
    if (!place || ::fstat(place.get(), &status) != 0) return;  // what is not there cannot be reached either
    access &= known_to(version);
    if (!S_ISDIR(status.st_mode)) access &= for_files;
    const PathRule rule{access, place.get()};
    if (::syscall(add_rule_call, ruleset.get(), rule_path_beneath, &rule, 0) != 0)
        fail("cannot allow a file");
}

}  // namespace

int landlock_version() noexcept {
    const long version = ::syscall(create_ruleset_call, nullptr, 0, ask_version);
    return version > 0 ? static_cast<int>(version) : 0;
}

FileDescriptor prepare_files(const Policy& policy, int version) {
    if (version == 0) return {};
    FileDescriptor ruleset = make_ruleset(policy, version);
    const std::uint64_t changing = policy.may_make_sockets ? writing | make_sock | make_sym : writing;
    for (const auto& path : policy.may_read)
        allow(ruleset, path, reading, version);
    for (const auto& path : policy.may_write)
        allow(ruleset, path, changing, version);
    for (const auto& path : policy.may_start)
        allow(ruleset, path, starting, version);
    if (!policy.may_start.empty())
        for (const char* loader : loaders)
            allow(ruleset, loader, starting, version);
    return ruleset;
}

bool restrict_to(const FileDescriptor& prepared) noexcept {
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           (!prepared || ::syscall(restrict_self_call, prepared.get(), 0) == 0);
}

void restrict_files(const Policy& policy, int version) {
    if (!restrict_to(prepare_files(policy, version))) fail("cannot restrict files");
}

}  // namespace foliant::hosts::containment
