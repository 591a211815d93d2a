#include "platform/local/private_folder.h"

#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

#include "platform/local/system_error.h"
#include "posix/random.h"

namespace foliant::platform::local {

using posix::FileDescriptor;

namespace fs = std::filesystem;

namespace {

/// Tells a private folder from one that somebody else calls "foliant-drafts".
constexpr const char* lock_name = ".foliant-private";
constexpr std::string_view name_prefix = "foliant-";
constexpr std::size_t name_length = 14;

/// Locks the file of that name in the open folder; nothing when somebody else has it or it was removed
/// meanwhile.
FileDescriptor lock_in(int folder, int open_flags) noexcept {
    FileDescriptor lock(::openat(folder, lock_name, open_flags | O_RDWR | O_NOFOLLOW | O_CLOEXEC, 0600));
    struct stat held {};
    if (!lock || ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 || ::fstat(lock.get(), &held) != 0 ||
        held.st_nlink == 0) {
        return {};
    }
    return lock;
}

FileDescriptor open_folder(const fs::path& path) noexcept {
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// The lock goes last: as long as something is left, it marks the folder as one to be removed.
void remove_with_lock_last(const fs::path& folder) {
    bool emptied = true;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename() == lock_name) continue;
        std::error_code problem;
        fs::remove_all(entry.path(), problem);
        emptied = emptied && !problem;
    }
    if (emptied) fs::remove_all(folder);
}

/// One that nobody else can have taken, because nobody can guess it.
std::string new_name() {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::string name(name_prefix);
    while (name.size() < name_length)
        name += letters[posix::random_number() % letters.size()];
    return name;
}

automation::Error with_remedy(const automation::Error& error) {
    return {
        error.number(), error.source(),
        error.description() + "\nFree some space there, or name another folder: TMPDIR=FOLDER foliant ..."};
}

void remove_if_dead(const fs::path& path) {
    const FileDescriptor folder = open_folder(path);
    struct stat status {};
    if (!folder || ::fstat(folder.get(), &status) != 0 || status.st_uid != ::geteuid()) return;
    // The lock is held until all is gone, so that of two sweepers only one is at work here.
    if (const FileDescriptor lock = lock_in(folder.get(), 0)) remove_with_lock_last(path);
}

}  // namespace

PrivateFolder::PrivateFolder(const fs::path& parent)
    : path_(fs::absolute(parent) / new_name()), owner_(::getpid()) {}

const fs::path& PrivateFolder::path() {
    if (lock_) return path_;
    try {
        make();
    } catch (const automation::Error& error) {
        if (!error.is(automation::RuntimeError::disk_full)) throw;
        sweep(path_.parent_path());
        make();
    }
    return path_;
}

void PrivateFolder::make() {
    // A sweeper may take a folder for dead in the instant before its lock is held; then it is made again.
    while (!try_to_make()) {
    }
}

bool PrivateFolder::try_to_make() {
    if (::mkdir(path_.c_str(), 0700) != 0) {
        const auto number = errno == ENOSPC || errno == EDQUOT ? automation::RuntimeError::disk_full
                            : errno == ENOENT || errno == ENOTDIR
                                ? automation::RuntimeError::path_not_found
                                : automation::RuntimeError::permission_denied;
        throw with_remedy(
            system_error(number, "make a temporary folder in", path_.parent_path().string(), errno));
    }
    const FileDescriptor folder = open_folder(path_);
    lock_ = lock_in(folder.get(), O_CREAT);
    if (!lock_) {
        const int code = errno;
        std::error_code ignored;
        fs::remove_all(path_, ignored);
        if (code == ENOSPC || code == EDQUOT || code == EMFILE || code == ENFILE) {
            throw with_remedy(system_error(automation::RuntimeError::disk_full, "use the temporary folder",
                                           path_.string(), code));
        }
        return false;
    }
    return true;
}

PrivateFolder::~PrivateFolder() {
    if (::getpid() == owner_) remove();
}

void PrivateFolder::remove() noexcept {
    // An engine's thread may be writing still, which makes a folder that was just emptied fill again.
    for (int attempt = 0; attempt < 3; ++attempt) {
        try {
            if (!fs::exists(path_)) return;
            remove_with_lock_last(path_);
        } catch (...) {  // NOLINT(bugprone-empty-catch): what cannot be removed stays
        }
    }
}

fs::path PrivateFolder::usual_parent() {
    const char* named = std::getenv("TMPDIR");
    std::error_code ignored;
    return named != nullptr && fs::is_directory(named, ignored) ? fs::path(named) : fs::path("/tmp");
}

void PrivateFolder::sweep(const fs::path& parent) noexcept {
    // Temporary folders have thousands of entries; nothing is made of those that have another name.
    const std::unique_ptr<DIR, int (*)(DIR*)> all(::opendir(parent.c_str()), ::closedir);
    while (const dirent* const entry = all ? ::readdir(all.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (name.size() != name_length || !name.starts_with(name_prefix)) continue;
        try {
            remove_if_dead(parent / name);
        } catch (...) {  // NOLINT(bugprone-empty-catch): the next folder may be easier
        }
    }
}

}  // namespace foliant::platform::local
