#pragma once

#include <cerrno>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace foliant::hosts::autocad {

/// All of an open file, from its beginning. Throws std::system_error.
inline std::string read_file(int descriptor) {
    const auto fail = [] { throw std::system_error(errno, std::generic_category(), "cannot read"); };
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0) fail();
    std::string bytes(static_cast<std::size_t>(facts.st_size), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t got =
            ::pread(descriptor, bytes.data() + length, bytes.size() - length, static_cast<off_t>(length));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) fail();
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    bytes.resize(length);
    return bytes;
}

}  // namespace foliant::hosts::autocad
