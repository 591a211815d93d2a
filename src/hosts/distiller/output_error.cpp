#include "hosts/distiller/output_error.h"

#include <cerrno>
#include <cstdint>

namespace foliant::hosts::distiller {
namespace {

std::string advice(const std::filesystem::path& target, int reason) {
    switch (reason) {
        case ENOENT:
        case ENOTDIR:
            return "Create the folder " + target.parent_path().string() + " first.";
        case EACCES:
        case EPERM:
        case EROFS:
            return "Choose a folder that you may write to.";
        case ENOSPC:
        case EDQUOT:
            return "Free some space there, or choose another folder.";
        default:
            return "Choose another name or folder.";
    }
}

}  // namespace

DistillError output_error(const std::filesystem::filesystem_error& failure) {
    const std::filesystem::path& target = failure.path1();
    const int reason = failure.code().value();
    const std::string why = reason == ENOTSUP ? "It is a device or a pipe" : system_reason(reason);
    return DistillError("Cannot write the PDF " + target.string() + ": " + why + ". " +
                        advice(target, reason));
}

bool disk_is_full(const std::filesystem::path& folder) {
    constexpr std::uintmax_t nothing_to_speak_of = 65536;  // bytes
    std::error_code error;
    const auto available = std::filesystem::space(folder, error).available;
    return !error && available < nothing_to_speak_of;
}

}  // namespace foliant::hosts::distiller
