#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace foliant::hosts::office {

/// Writes what `make_content` gives to `target`, which appears complete or not at all. That the target can be
/// written is found out before the content is made.
///
/// Raises an automation error that names the target: 76 (folder missing), 70 (not permitted), 61 (disk full)
/// or 75 (a folder or a device); and whatever `make_content` raises.
void write_output(const std::filesystem::path& target, const std::function<std::string()>& make_content);

}  // namespace foliant::hosts::office
