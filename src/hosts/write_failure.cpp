#include "hosts/write_failure.h"

#include <cerrno>

namespace foliant::hosts {

using automation::RuntimeError;

namespace {

struct Reason {
    RuntimeError number;
    std::string text;  ///< why, and what to do
};

std::string folder_of(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path().string() : ".";
}

Reason reason_of(const std::filesystem::filesystem_error& failure) {
    switch (failure.code().value()) {
        case ENOENT:
        case ENOTDIR:
            return {RuntimeError::path_not_found, "the folder " + folder_of(failure.path1()) +
                                                      " does not exist. Create it, or choose another one."};
        case EACCES:
        case EPERM:
        case EROFS:
            return {RuntimeError::permission_denied,
                    "the folder or the file is write-protected. Choose another folder."};
        case ENOSPC:
            return {RuntimeError::disk_full,
                    "the disk is full. Free some space there, or choose another folder."};
        case EDQUOT:
        case EFBIG:
            return {RuntimeError::disk_full,
                    "it is larger than you may make files there. Choose another folder."};
        case EISDIR:
            return {RuntimeError::path_file_access, "it is a folder. Give the name of a file."};
        case ENOTSUP:
            return {RuntimeError::path_file_access, "it is a device or a pipe. Give the name of a file."};
        default:
            return {RuntimeError::path_file_access,
                    failure.code().message() + ". Choose another name or folder."};
    }
}

}  // namespace

std::string write_failure_text(const std::filesystem::filesystem_error& failure, std::string_view what) {
    std::string text = "Cannot write ";
    if (!what.empty()) text.append(what) += ' ';
    return text + failure.path1().string() + ": " + reason_of(failure).text;
}

automation::Error write_failure(std::string_view application,
                                const std::filesystem::filesystem_error& failure) {
    return {static_cast<std::int32_t>(reason_of(failure).number), std::string(application),
            write_failure_text(failure)};
}

}  // namespace foliant::hosts
