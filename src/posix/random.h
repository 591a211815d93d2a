#pragma once

#include <cerrno>
#include <cstdint>
#include <sys/random.h>
#include <system_error>

namespace foliant::posix {

/// A number that nobody can guess, from the kernel. The standard library's device asks the processor what it is first,
/// which takes long on a virtual one. Throws std::system_error.
inline std::uint32_t random_number() {
    std::uint32_t number = 0;
    if (::getentropy(&number, sizeof number) != 0)
        throw std::system_error(errno, std::generic_category(), "cannot get a random number");
    return number;
}

}  // namespace foliant::posix
