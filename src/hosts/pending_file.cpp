#include "hosts/pending_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#include "posix/random.h"

namespace foliant::hosts {

using posix::FileDescriptor;

namespace {

constexpr mode_t new_file_rights = 0666;  // less the umask

[[noreturn]] void throw_failure(const std::filesystem::path& path, int code) {
    throw std::filesystem::filesystem_error("cannot write", path,
                                            std::error_code(code, std::generic_category()));
}

}  // namespace

PendingFile::PendingFile(std::filesystem::path target, Name name) : target_(std::move(target)) {
    std::error_code ignored;
    const std::filesystem::file_status present = std::filesystem::status(target_, ignored);
    if (std::filesystem::is_directory(present)) fail(EISDIR);
    if (std::filesystem::is_other(present)) fail(ENOTSUP);
    if (name == Name::nameless) open_nameless();
    if (!file_) open_hidden();
}

void PendingFile::open_nameless() {
    file_ = FileDescriptor(::open(folder().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, new_file_rights));
    const bool unsupported = errno == EOPNOTSUPP || errno == EISDIR;  // a kernel without it opens the folder
    if (!file_ && !unsupported) fail(errno);
}

void PendingFile::open_hidden() {
    std::filesystem::path name = hidden_sibling();
    file_ = FileDescriptor(::open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, new_file_rights));
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
    write_all(file_.get(), bytes, target_);
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
    close_written(file_, target_);
    if (std::rename(hidden_.c_str(), target_.c_str()) != 0) fail(errno);
    hidden_.clear();
}

std::filesystem::path PendingFile::folder() const {
    return target_.has_parent_path() ? target_.parent_path() : std::filesystem::path(".");
}

std::filesystem::path PendingFile::hidden_sibling() const {
    return folder() / (".foliant-" + std::to_string(posix::random_number()) + ".tmp");
}

void PendingFile::fail(int code) const {
    throw_failure(target_, code);
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
