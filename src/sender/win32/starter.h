#pragma once

#include <memory>
#include <type_traits>
#include <windows.h>

namespace foliant::sender::win32 {

/// The process that started this one.
class Starter {
  public:
    Starter();

    /// False, too, when it cannot be known: when this process may not look at it.
    bool has_ended() const;

  private:
    struct Close {
        void operator()(HANDLE process) const { CloseHandle(process); }
    };

    std::unique_ptr<std::remove_pointer_t<HANDLE>, Close> process_;
    bool ended_before_ = false;  ///< before there was anything to hold
};

}  // namespace foliant::sender::win32
