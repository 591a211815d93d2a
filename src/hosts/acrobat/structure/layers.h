#pragma once

#include "hosts/acrobat/structure/insertion.h"

namespace foliant::hosts::acrobat::structure {

/// Adds the source's layers (optional content) to those of the target; each is shown or not as it was.
void add_layers(const Insertion& insertion);

}  // namespace foliant::hosts::acrobat::structure
