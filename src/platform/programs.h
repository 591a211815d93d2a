#pragma once

#include <string>

namespace foliant::platform {

/// How the first window of a started program shows.
enum class WindowStyle { hidden = 0 };

/// Other programs. Only this port starts any.
class Programs {
  public:
    virtual ~Programs() = default;

    /// Starts a program and does not wait for it. The command line goes to the system as it is: nothing is
    /// quoted or taken apart. It begins with the program's path, or with a bare name that the system looks
    /// for in its own places. Raises 53 when there is no such program, 5 when it cannot be started.
    virtual void start(const std::string& command_line, WindowStyle style) = 0;
};

}  // namespace foliant::platform
