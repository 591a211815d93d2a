#pragma once

#include "platform/servers.h"

namespace foliant::platform::win32 {

/// Registered automation classes, in-process or local.
class WindowsServers : public Servers {
  public:
    automation::ObjectPtr create(std::string_view class_name) override;
};

}  // namespace foliant::platform::win32
