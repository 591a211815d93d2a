#pragma once

#include "platform/programs.h"

namespace foliant::platform::win32 {

/// Starts programs and lets go of them at once.
class WindowsPrograms : public Programs {
  public:
    void start(const std::string& command_line, WindowStyle style) override;
};

}  // namespace foliant::platform::win32
