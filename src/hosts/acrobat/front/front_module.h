#pragma once

#include "hosts/module.h"

namespace foliant::hosts::acrobat::front {

/// The module that stands in for Acrobat. It is a part of the command: to load it would take longer than it takes to
/// count pages.
const Module* front_module() noexcept;

}  // namespace foliant::hosts::acrobat::front
