#pragma once

#include "platform/shell.h"

namespace foliant::platform::win32 {

/// The shell's folders, and where the module that holds this code lies (the DLL, or a test program).
class WindowsShell : public Shell {
  public:
    std::optional<std::string> special_folder(std::intptr_t owner, std::int32_t folder) override;
    std::string library_folder() override;
};

}  // namespace foliant::platform::win32
