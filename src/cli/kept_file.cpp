#include "cli/kept_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "automation/error.h"
#include "hosts/pending_file.h"
#include "posix/random.h"
#include "posix/same_file.h"

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
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return !file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0;
}

}  // namespace

void ReplacementLock::open(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    file_ = FileDescriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

void ReplacementLock::take(const std::string& path, std::string_view advice) {
    while (true) {
        FileDescriptor file = std::exchange(file_, {});
        if (!file) file = FileDescriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
        struct stat locked {};
        if (!file || ::fstat(file.get(), &locked) != 0 || !S_ISREG(locked.st_mode)) return;
        if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
            if (errno != EWOULDBLOCK) return;
            throw Error(RuntimeError::permission_denied,
                        path + " is being replaced by another call at this moment. " + std::string(advice));
        }
        struct stat now {};
        if (::stat(path.c_str(), &now) != 0) return;
        // Where a call has replaced it since it was opened, the file that has the name now is the one to lock.
        if (!posix::is_same_file(locked, now)) continue;
        file_ = std::move(file);
        return;
    }
}

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

void KeptFile::expect(const std::string& path) {
    namespace fs = std::filesystem;
    path_ = path;
    named_.look_at(path);
    struct stat standing {};
    if (!named_.is_there(standing)) return;
    lock_.open(path);
    if (!S_ISLNK(standing.st_mode)) return;
    std::error_code unknown;
    const fs::path file = fs::canonical(path, unknown);
    is_link_ = !unknown && fs::is_regular_file(file, unknown);
    if (is_link_) led_to_.look_at(file.string());
}

void KeptFile::keep() {
    struct stat standing {};
    if (!named_.is_there(standing)) return;
    lock_.take(path_, "Wait for it, or give the output another name.");
    if (const int code = named_.link_or_move(); code != 0) {
        throw Error(RuntimeError::permission_denied, path_ + " cannot be replaced (" +
                                                         std::generic_category().message(code) +
                                                         "). Give the output another name or folder.");
    }
    // A second name only: were it moved aside, it could not be replaced through the link any more.
    if (is_link_) led_to_.link();
}

void KeptFile::take_notice() noexcept {
    named_.take_notice();
    led_to_.take_notice();
}

void KeptFile::put_back() noexcept {
    led_to_.put_back();
    named_.put_back();
    lock_.give_up();
}

void KeptFile::drop() noexcept {
    named_.give_rights_to_new_one();
    named_.forget();
    led_to_.forget();
    lock_.give_up();
}

bool KeptFile::is_in_place() const noexcept {
    return named_.is_in_place() && (!is_link_ || led_to_.is_in_place());
}

void KeptFile::Names::look_at(const std::string& path) {
    const std::filesystem::path whole(path);
    if (!whole.has_filename()) return;
    const std::filesystem::path folder = whole.has_parent_path() ? whole.parent_path() : ".";
    folder_ = FileDescriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    name_ = whole.filename().string();
    hidden_ = hidden_name(name_);
}

bool KeptFile::Names::is_there(struct stat& status) const noexcept {
    return folder_ && ::fstatat(folder_.get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

int KeptFile::Names::link() {
    if (::linkat(folder_.get(), name_.c_str(), folder_.get(), hidden_.c_str(), 0) != 0) return errno;
    second_ = hidden_;
    return 0;
}

int KeptFile::Names::link_or_move() {
    if (link() == 0) return 0;
    if (::renameat(folder_.get(), name_.c_str(), folder_.get(), hidden_.c_str()) != 0) return errno;
    second_ = hidden_;
    return 0;
}

void KeptFile::Names::take_notice() noexcept {
    struct stat status {};
    if (folder_ && ::fstatat(folder_.get(), hidden_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        second_.swap(hidden_);
}

bool KeptFile::Names::is_in_place() const noexcept {
    struct stat now {};
    struct stat kept {};
    return !second_.empty() && is_there(now) &&
           ::fstatat(folder_.get(), second_.c_str(), &kept, AT_SYMLINK_NOFOLLOW) == 0 &&
           posix::is_same_file(now, kept);
}

/// In place of a link, it gets those of the file that the link led to.
void KeptFile::Names::give_rights_to_new_one() const noexcept try {
    if (second_.empty() || is_in_place()) return;
    const FileDescriptor made(
        ::openat(folder_.get(), name_.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!made || ::fstat(made.get(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    const std::string folder = "/proc/self/fd/" + std::to_string(folder_.get());
    hosts::take_rights(made.get(), std::filesystem::path(folder) / second_);
} catch (...) {  // no memory: it stays its owner's alone
}

void KeptFile::Names::put_back() noexcept {
    if (second_.empty()) return;
    if (::renameat(folder_.get(), second_.c_str(), folder_.get(), name_.c_str()) == 0) {
        // Two names of one file stay two when one is renamed to the other.
        forget();
    }
}

void KeptFile::Names::forget() noexcept {
    if (!second_.empty()) ::unlinkat(folder_.get(), second_.c_str(), 0);
    second_.clear();
}

}  // namespace foliant::cli
