#pragma once

#include <sys/stat.h>

namespace foliant::posix {

/// Whether two files that were looked at are one, whatever their names.
inline bool is_same_file(const struct stat& a, const struct stat& b) noexcept {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace foliant::posix
