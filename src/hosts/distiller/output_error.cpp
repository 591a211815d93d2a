#include "hosts/distiller/output_error.h"

#include <cstdint>

#include "hosts/write_failure.h"

namespace foliant::hosts::distiller {
DistillError output_error(const std::filesystem::filesystem_error& failure) {
    return DistillError(write_failure_text(failure, "the PDF"));
}

bool disk_is_full(const std::filesystem::path& folder) {
    constexpr std::uintmax_t nothing_to_speak_of = 65536;  // bytes
    std::error_code error;
    const auto available = std::filesystem::space(folder, error).available;
    return !error && available < nothing_to_speak_of;
}

}  // namespace foliant::hosts::distiller
