#pragma once

#include <string>

namespace foliant::hosts::web {

/// An address as a browser takes it: what was typed, with "http://" or "file://" where only a name or a path
/// was typed. Throws CaptureError for anything but http, https and file.
std::string full_address(const std::string& typed);

}  // namespace foliant::hosts::web
