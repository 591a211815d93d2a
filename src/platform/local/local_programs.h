#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/programs.h"

namespace foliant::platform::local {

/// The programs that this machine has: those that were installed here, all of them built in.
class LocalPrograms : public Programs {
  public:
    /// Runs a program; `tail` is what follows the blank after its name on the command line.
    using Main = std::function<void(std::string_view tail)>;

    /// Installs a program under the name or path that command lines call it by. Case matters.
    void install(std::string path, Main main);

    /// A path may hold blanks: of two programs whose paths both begin the line, the longer one is meant.
    /// Raises 53, naming the program, for any other; and what the program raises.
    void start(const std::string& command_line, WindowStyle style) override;

  private:
    std::map<std::string, Main, std::greater<>> programs_;
};

}  // namespace foliant::platform::local
