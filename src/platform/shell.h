#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace foliant::platform {

/// Well-known folders.
class Shell {
  public:
    virtual ~Shell() = default;

    /// The path buffer of a shell folder by its number (37 is the system folder), as the shell filled it: the
    /// path, a NUL, and whatever follows. Nothing when the shell does not know the folder. `owner` is the
    /// window that a question to the user would belong to.
    virtual std::optional<std::string> special_folder(std::intptr_t owner, std::int32_t folder) = 0;

    /// The folder that this library was loaded from; may or may not end in the separator.
    virtual std::string library_folder() = 0;
};

}  // namespace foliant::platform
