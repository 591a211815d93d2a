#pragma once

#include "hosts/module.h"

namespace foliant::hosts::office::test {

/// The module as the command loads it.
const Module& office_module();

}  // namespace foliant::hosts::office::test
