#include "hosts/distiller/pending_file.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>

#include "hosts/distiller/distill_error.h"

namespace foliant::hosts::distiller {
namespace {

constexpr mode_t kNewFileRights = 0666;  // less the umask

DistillError cannot_write(const std::filesystem::path& target, int error_number) {
    std::string text = "Cannot write the PDF " + target.string() + ": " + system_reason(error_number) + ". ";
    switch (error_number) {
        case ENOENT:
        case ENOTDIR:
            return DistillError(text + "Create the folder " + target.parent_path().string() + " first.");
        case EACCES:
        case EPERM:
        case EROFS:
            return DistillError(text + "Choose a folder that you may write to.");
        case ENOSPC:
        case EDQUOT:
            return DistillError(text + "Free some space there, or choose another folder.");
        default:
            return DistillError(text + "Choose another name or folder.");
    }
}

}  // namespace

PendingFile::PendingFile(std::filesystem::path target, Name name) : target_(std::move(target)) {
    if (std::error_code ignored; std::filesystem::is_directory(target_, ignored)) {
        throw cannot_write(target_, EISDIR);
    }
    if (name == Name::nameless) open_nameless();
    if (!file_) open_hidden();
}

void PendingFile::open_nameless() {
    const std::filesystem::path folder = target_.parent_path();
    file_ = FileDescriptor(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFileRights));
    const bool unsupported = errno == EOPNOTSUPP || errno == EISDIR;  // a kernel without it opens the folder
    if (!file_ && !unsupported) throw cannot_write(target_, errno);
}

void PendingFile::open_hidden() {
    hidden_ = hidden_sibling();
    file_ = FileDescriptor(::open(hidden_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kNewFileRights));
    if (!file_) throw cannot_write(target_, errno);
}

PendingFile::~PendingFile() {
    if (!hidden_.empty()) ::unlink(hidden_.c_str());
}

std::filesystem::path PendingFile::path_in_this_process() const {
    return "/proc/self/fd/" + std::to_string(file_.get());
}

void PendingFile::commit() {
    if (hidden_.empty()) {
        // A link cannot replace a file, a rename can.
        std::filesystem::path name = hidden_sibling();
        if (::linkat(AT_FDCWD, path_in_this_process().c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) !=
            0) {
            throw cannot_write(target_, errno);
        }
        hidden_ = std::move(name);
    }
    if (std::rename(hidden_.c_str(), target_.c_str()) != 0) throw cannot_write(target_, errno);
    hidden_.clear();
}

std::filesystem::path PendingFile::hidden_sibling() const {
    std::random_device random;
    return target_.parent_path() / (".foliant-" + std::to_string(random()) + ".pdf");
}

bool disk_is_full(const std::filesystem::path& folder) {
    constexpr std::uintmax_t kNothingToSpeakOf = 65536;  // bytes
    std::error_code error;
    const auto available = std::filesystem::space(folder, error).available;
    return !error && available < kNothingToSpeakOf;
}

}  // namespace foliant::hosts::distiller
