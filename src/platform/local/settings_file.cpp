#include "platform/local/settings_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>

#include "platform/local/system_error.h"

namespace foliant::platform::local {

using posix::FileDescriptor;

namespace fs = std::filesystem;
using automation::RuntimeError;

namespace {

[[noreturn]] void fail(std::string_view action, const fs::path& file, int code) {
    const auto number = code == EACCES || code == EPERM || code == EROFS ? RuntimeError::permission_denied
                        : code == ENOSPC || code == EDQUOT               ? RuntimeError::disk_full
                                                                         : RuntimeError::device_io_error;
    throw system_error(number, action, file.string(), code);
}

void make_folder_for(const fs::path& file) {
    const fs::path folder = file.parent_path();
    std::error_code problem;
    if (folder.empty() || fs::is_directory(folder, problem)) return;
    fs::create_directories(folder.parent_path(), problem);
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) fail("make the folder", folder, errno);
}

void write_all(int descriptor, std::string_view content, const fs::path& file) {
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) fail("write", file, errno);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// A file that is removed again unless it took its place.
class Draft {
  public:
    explicit Draft(const fs::path& target) : target_(target), name_(target.string() + ".XXXXXX") {
        file_ = FileDescriptor(::mkostemp(name_.data(), O_CLOEXEC));
        if (!file_) fail("write beside", target_, errno);
    }
    ~Draft() {
        if (!name_.empty()) ::unlink(name_.c_str());
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    int descriptor() const { return file_.get(); }
    void take_place() {
        if (::fsync(file_.get()) != 0) fail("write", target_, errno);
        if (::rename(name_.c_str(), target_.c_str()) != 0) fail("replace", target_, errno);
        name_.clear();
    }

  private:
    fs::path target_;
    std::string name_;
    FileDescriptor file_;
};

}  // namespace

std::optional<struct stat> settings_file_status(const fs::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) == 0) return status;
    if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
    fail("read the settings file", file, errno);
}

std::optional<std::string> read_settings_file(const fs::path& file) {
    // Something else than a file, a pipe for one, must not make the reader wait.
    const FileDescriptor open(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!open && (errno == ENOENT || errno == ENOTDIR)) return std::nullopt;
    if (!open) fail("read the settings file", file, errno);
    std::string content;
    std::array<char, 16384> piece{};
    while (true) {
        const ssize_t got = ::read(open.get(), piece.data(), piece.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) fail("read the settings file", file, errno);
        if (got == 0) return content;
        content.append(piece.data(), static_cast<std::size_t>(got));
    }
}

SettingsLock::SettingsLock(const fs::path& file) {
    make_folder_for(file);
    const fs::path lock_file = file.string() + ".lock";
    lock_ = FileDescriptor(::open(lock_file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock_) fail("lock", lock_file, errno);
    while (::flock(lock_.get(), LOCK_EX) != 0) {
        if (errno != EINTR) fail("lock", lock_file, errno);
    }
}

void replace_settings_file(const fs::path& file, const std::string& content) {
    std::error_code ignored;
    const fs::path linked = fs::canonical(file, ignored);
    const fs::path target = linked.empty() ? file : linked;
    Draft draft(target);
    if (const auto status = settings_file_status(target))
        ::fchmod(draft.descriptor(), status->st_mode & 07777U);
    write_all(draft.descriptor(), content, target);
    draft.take_place();
}

}  // namespace foliant::platform::local
