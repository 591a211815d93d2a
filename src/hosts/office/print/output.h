#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "hosts/machine.h"
#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// Writes what `make_content` gives to `target`, an output that `machine` makes, which appears complete or
/// not at all. That the target can be written is found out before the content is made.
///
/// Raises an error of `application` that names the target (see write_failure), and whatever `make_content`
/// raises.
void write_output(const std::filesystem::path& target, Machine& machine, const Application& application,
                  const std::function<std::string()>& make_content);

}  // namespace foliant::hosts::office
