#include "hosts/office/output_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "hosts/office/errors.h"

namespace foliant::hosts::office {

using automation::RuntimeError;

namespace {

constexpr mode_t any_user = 0666;  // less the user's umask, like any file that a program makes

automation::Error output_error(const std::filesystem::path& target, int reason) {
    const std::string start = "Cannot write " + target.string() + ": ";
    switch (reason) {
        case ENOENT:
        case ENOTDIR:
            return word_error(RuntimeError::path_not_found,
                              start + "its folder does not exist. Create the folder or choose another one.");
        case EACCES:
        case EPERM:
        case EROFS:
            return word_error(RuntimeError::permission_denied,
                              start + "the folder or the file is write-protected. Choose another folder.");
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return word_error(RuntimeError::disk_full,
                              start + "the disk is full or a quota is reached. Free some space.");
        case EISDIR:
            return word_error(RuntimeError::path_file_access,
                              start + "it is a folder. Give the name of a file.");
        default:
            return word_error(RuntimeError::path_file_access, start + std::strerror(reason) + ".");
    }
}

std::filesystem::path folder_of(const std::filesystem::path& target) {
    return target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
}

std::filesystem::path unused_name(const std::filesystem::path& target) {
    return folder_of(target) / (".foliant-" + std::to_string(std::random_device()()) + ".tmp");
}

}  // namespace

OutputFile::OutputFile(const std::filesystem::path& target) : target_(target) {
    struct stat status;
    if (::stat(target.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) throw output_error(target_, EISDIR);
        if (!S_ISREG(status.st_mode)) {
            descriptor_ = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
            if (descriptor_ < 0) throw output_error(target_, errno);
            return;
        }
    }
    open_nameless(folder_of(target));
    if (!nameless_) open_named();
}

void OutputFile::open_nameless(const std::filesystem::path& folder) {
    descriptor_ = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, any_user);
    nameless_ = descriptor_ >= 0;
}

void OutputFile::open_named() {
    const std::filesystem::path name = unused_name(target_);
    descriptor_ = ::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, any_user);
    if (descriptor_ < 0) throw output_error(target_, errno);
    temporary_ = name;
}

OutputFile::~OutputFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void OutputFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw output_error(target_, errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void OutputFile::link_nameless() {
    const std::string content = "/proc/self/fd/" + std::to_string(descriptor_);
    const auto link_to = [&](const std::filesystem::path& name) {
        return ::linkat(AT_FDCWD, content.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    if (link_to(target_)) return;
    // A link never replaces a file; a rename does.
    const std::filesystem::path name = unused_name(target_);
    if (errno != EEXIST || !link_to(name)) throw output_error(target_, errno);
    temporary_ = name;
}

void OutputFile::publish() {
    if (nameless_) link_nameless();
    // Network file systems report a full disk only here.
    if (::close(std::exchange(descriptor_, -1)) != 0) throw output_error(target_, errno);
    if (temporary_.empty()) return;
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) throw output_error(target_, errno);
    temporary_.clear();
}

}  // namespace foliant::hosts::office
