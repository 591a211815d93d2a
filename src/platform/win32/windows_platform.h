#pragma once

#include <memory>

#include "platform/platform.h"

namespace foliant::platform::win32 {

/// The ports on Windows: the real registry, files, windows, programs and automation classes.
///
/// The thread that uses them has called CoInitialize, as every thread of an apartment-threaded component has.
/// Nothing is opened or started by making one.
class WindowsPlatform {
  public:
    WindowsPlatform();
    ~WindowsPlatform();

    /// The ports; they live as long as this object.
    Platform platform() const;

  private:
    struct Ports;
    std::unique_ptr<Ports> ports_;
};

}  // namespace foliant::platform::win32
