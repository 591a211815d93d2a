#include "hosts/office/output.h"

#include <cerrno>

#include "hosts/office/errors.h"
#include "hosts/pending_file.h"

namespace foliant::hosts::office {

using automation::RuntimeError;

namespace {

automation::Error output_error(const std::filesystem::filesystem_error& failure) {
    const std::string start = "Cannot write " + failure.path1().string() + ": ";
    switch (failure.code().value()) {
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
        case ENOTSUP:
            return word_error(RuntimeError::path_file_access,
                              start + "it is a device or a pipe. Give the name of a file.");
        default:
            return word_error(RuntimeError::path_file_access, start + failure.code().message() + ".");
    }
}

}  // namespace

void write_output(const std::filesystem::path& target, const std::function<std::string()>& make_content) {
    try {
        PendingFile file(target);
        file.write(make_content());
        file.commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw output_error(failure);
    }
}

}  // namespace foliant::hosts::office
