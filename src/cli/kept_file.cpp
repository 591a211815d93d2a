#include "cli/kept_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

#include "automation/error.h"
#include "posix/random.h"

namespace foliant::cli {

using automation::Error;
using automation::RuntimeError;
using posix::FileDescriptor;

namespace {

constexpr const char* mark = ".kept-by-foliant-";

/// One that tells a person who comes upon it what it is, after a power failure for example.
std::string hidden_name(const std::string& name) {
    constexpr std::size_t longest_name = 255;
    const std::string ending = mark + std::to_string(posix::random_number());
    return name.size() + 1 + ending.size() <= longest_name ? "." + name + ending : ending;
}

/// Whether a call that has not ended holds that file.
bool is_held(const std::filesystem::path& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return !file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0;
}

}  // namespace

bool KeptFile::bring_back_lost(const std::string& path) noexcept try {
    namespace fs = std::filesystem;
    const fs::path whole(path);
    std::error_code none;
    if (!whole.has_filename() || fs::exists(fs::symlink_status(whole, none))) return false;
    const std::string beginning = "." + whole.filename().string() + mark;
    const fs::path folder = whole.has_parent_path() ? whole.parent_path() : ".";
    for (const auto& entry : fs::directory_iterator(folder, none)) {
        if (!entry.path().filename().string().starts_with(beginning) || is_held(entry.path())) continue;
        if (::renameat2(AT_FDCWD, entry.path().c_str(), AT_FDCWD, whole.c_str(), RENAME_NOREPLACE) == 0)
            return true;
    }
    return false;
} catch (...) {  // a folder that changes meanwhile, or no memory: it is only a try
    return false;
}

void KeptFile::keep(const std::string& path) {
    if (!open_folder_of(path)) return;
    struct stat standing {};
    if (::fstatat(folder_.get(), name_.c_str(), &standing, AT_SYMLINK_NOFOLLOW) != 0) return;
    if (S_ISREG(standing.st_mode)) lock_against_other_calls(path);
    if (const int code = give_second_name(); code != 0) {
        throw Error(RuntimeError::permission_denied, path + " cannot be replaced (" +
                                                         std::generic_category().message(code) +
                                                         "). Give the output another name or folder.");
    }
}

bool KeptFile::open_folder_of(const std::string& path) {
    const std::filesystem::path whole(path);
    const std::filesystem::path folder = whole.has_parent_path() ? whole.parent_path() : ".";
    name_ = whole.filename().string();
    folder_ = FileDescriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    return folder_ && !name_.empty();
}

/// The lock ends with the last process of the call, however that ends.
void KeptFile::lock_against_other_calls(const std::string& path) {
    lock_ = FileDescriptor(::openat(folder_.get(), name_.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (lock_ && ::flock(lock_.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        throw Error(RuntimeError::permission_denied,
                    path +
                        " is being replaced by another call at this moment. Wait for it, or give the "
                        "output another name.");
    }
}

/// 0, or the reason why the file can have no other name.
int KeptFile::give_second_name() {
    const std::string second = hidden_name(name_);
    const bool linked = ::linkat(folder_.get(), name_.c_str(), folder_.get(), second.c_str(), 0) == 0;
    if (!linked && ::renameat(folder_.get(), name_.c_str(), folder_.get(), second.c_str()) != 0) return errno;
    second_ = second;
    return 0;
}

void KeptFile::put_back() noexcept {
    if (second_.empty()) return;
    if (::renameat(folder_.get(), second_.c_str(), folder_.get(), name_.c_str()) == 0) {
        // Two names of one file stay two when one is renamed to the other.
        drop();
    }
}

void KeptFile::drop() noexcept {
    if (!second_.empty()) ::unlinkat(folder_.get(), second_.c_str(), 0);
    second_.clear();
    lock_.reset();
}

bool KeptFile::is_in_place() const noexcept {
    struct stat now {};
    struct stat kept {};
    return !second_.empty() && ::fstatat(folder_.get(), name_.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0 &&
           ::fstatat(folder_.get(), second_.c_str(), &kept, AT_SYMLINK_NOFOLLOW) == 0 &&
           now.st_dev == kept.st_dev && now.st_ino == kept.st_ino;
}

}  // namespace foliant::cli
