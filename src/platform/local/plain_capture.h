#pragma once

#include <string>

#include "hosts/machine.h"
#include "platform/servers.h"

namespace foliant::platform::local {

/// Captures a page where there is no browser: one host gets it, LibreOffice makes a PDF of what it got, each of them
/// contained, and only the first may connect to anybody. `address` is a full one; `servers` makes the hosts, which
/// work for `machine`. Throws hosts::web::CaptureError, and hosts::web::NoBrowser where LibreOffice is missing, too.
hosts::CapturedPage capture_plainly(Servers& servers, hosts::Machine& machine, const std::string& address);

}  // namespace foliant::platform::local
