#include "hosts/pending_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <system_error>
#include <unistd.h>

#include "posix/random.h"

namespace foliant::hosts {

using posix::FileDescriptor;

namespace {

constexpr mode_t new_file_rights = 0666;  // less the umask
constexpr mode_t owner_only = S_IRUSR | S_IWUSR;
constexpr const char* access_list = "system.posix_acl_access";

[[noreturn]] void throw_failure(const std::filesystem::path& path, int code) {
    throw std::filesystem::filesystem_error("cannot write", path,
                                            std::error_code(code, std::generic_category()));
}

/// Whether the file belongs to the same owner and group afterwards.
bool take_owner(int descriptor, const struct stat& now, const struct stat& former) noexcept {
    if (now.st_uid == former.st_uid && now.st_gid == former.st_gid) return true;
    if (::fchown(descriptor, former.st_uid, former.st_gid) == 0) return true;
    const bool has_group =
        now.st_gid == former.st_gid || ::fchown(descriptor, static_cast<uid_t>(-1), former.st_gid) == 0;
    return has_group && now.st_uid == former.st_uid;
}

/// Whether the file has as good an access list as the former one, that is, the same or none either.
bool take_access_list(int descriptor, const std::filesystem::path& former) noexcept {
    char list[4096];
    const ssize_t length = ::getxattr(former.c_str(), access_list, list, sizeof list);
    if (length >= 0)
        return ::fsetxattr(descriptor, access_list, list, static_cast<std::size_t>(length), 0) == 0;
    if (errno == ERANGE) return false;
    // The folder may have given it one of its own.
    return ::fremovexattr(descriptor, access_list) == 0 || errno == ENODATA || errno == ENOTSUP;
}

/// What the hidden names of a group's files begin with, for them to be found when it was killed.
std::string hidden_beginning(pid_t group) {
    return ".foliant-" + std::to_string(group) + "-";
}

std::filesystem::path folder_of(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

}  // namespace

PendingFile::PendingFile(std::filesystem::path target, Name name)
    : named_(std::move(target)), target_(named_) {
    namespace fs = std::filesystem;
    std::error_code ignored;
    const fs::file_status present = fs::status(named_, ignored);
    if (fs::is_directory(present)) fail(EISDIR);
    if (fs::is_other(present)) fail(ENOTSUP);
    replaces_ = fs::is_regular_file(present);
    if (replaces_ && fs::is_symlink(fs::symlink_status(named_, ignored))) {
        std::error_code unknown;
        target_ = fs::canonical(named_, unknown);
        if (unknown) fail(unknown.value());
    }
    if (name == Name::nameless) open_nameless();
    if (!file_) open_hidden();
    if (replaces_) take_rights(file_.get(), target_);
}

void PendingFile::open_nameless() {
    file_ = FileDescriptor(::open(folder().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, first_rights()));
    const bool unsupported = errno == EOPNOTSUPP || errno == EISDIR;  // a kernel without it opens the folder
    if (!file_ && !unsupported) fail(errno);
}

void PendingFile::open_hidden() {
    std::filesystem::path name = hidden_sibling();
    file_ = FileDescriptor(::open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, first_rights()));
    if (!file_) fail(errno);
    hidden_ = std::move(name);
}

PendingFile::~PendingFile() {
    // Its space is free at once, even while the kernel holds on to it for a contained engine that has just
    // ended.
    if (file_) static_cast<void>(::ftruncate(file_.get(), 0));
    if (!hidden_.empty()) ::unlink(hidden_.c_str());
}

std::filesystem::path PendingFile::path_in_this_process() const {
    return "/proc/self/fd/" + std::to_string(file_.get());
}

void PendingFile::write(std::string_view bytes) {
    write_all(file_.get(), bytes, named_);
}

void PendingFile::commit() {
    if (hidden_.empty()) {
        // A link cannot replace a file, a rename can.
        std::filesystem::path name = hidden_sibling();
        if (::linkat(AT_FDCWD, path_in_this_process().c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) !=
            0) {
            fail(errno);
        }
        hidden_ = std::move(name);
    }
    close_written(file_, named_);
    if (std::rename(hidden_.c_str(), target_.c_str()) != 0) fail(errno);
    hidden_.clear();
}

mode_t PendingFile::first_rights() const noexcept {
    return replaces_ ? owner_only : new_file_rights;
}

std::filesystem::path PendingFile::folder() const {
    return folder_of(target_);
}

std::filesystem::path PendingFile::hidden_sibling() const {
    return folder() / (hidden_beginning(::getpgrp()) + std::to_string(posix::random_number()) + ".tmp");
}

void PendingFile::fail(int code) const {
    throw_failure(named_, code);
}

void remove_pending_files(const std::filesystem::path& target, pid_t group) noexcept try {
    namespace fs = std::filesystem;
    std::error_code none;
    // Where a link leads, too: what takes the place of a file there was made beside it.
    for (const fs::path& folder : {folder_of(target), folder_of(fs::weakly_canonical(target, none))}) {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, none)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with(hidden_beginning(group)) && name.ends_with(".tmp"))
                fs::remove(entry.path(), none);
        }
    }
} catch (...) {  // NOLINT(bugprone-empty-catch): a folder that changes, or no memory; it is only a try
}

void take_rights(int descriptor, const std::filesystem::path& former) noexcept {
    struct stat now {};
    struct stat then {};
    if (::fstat(descriptor, &now) != 0 || ::stat(former.c_str(), &then) != 0) return;
    static_cast<void>(::fchmod(descriptor, owner_only));
    const mode_t owner = then.st_mode & S_IRWXU;
    const mode_t group = then.st_mode & S_IRWXG;
    const mode_t others = then.st_mode & S_IRWXO;
    if (take_owner(descriptor, now, then) && take_access_list(descriptor, former)) {
        static_cast<void>(::fchmod(descriptor, owner | group | others));
    } else {
        // Who was of the group may be one of the others now, and the other way round.
        static_cast<void>(::fremovexattr(descriptor, access_list));
        const mode_t both = (group >> 3U) & others;
        static_cast<void>(::fchmod(descriptor, owner | both << 3U | both));
    }
}

void write_all(int descriptor, std::string_view bytes, const std::filesystem::path& path) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw_failure(path, errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void close_written(posix::FileDescriptor& file, const std::filesystem::path& path) {
    if (::close(file.release()) != 0 && errno != EINTR) throw_failure(path, errno);
}

}  // namespace foliant::hosts
