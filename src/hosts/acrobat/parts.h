#pragma once

#include "hosts/containment/usual_files.h"

namespace foliant::hosts::acrobat {

/// The libraries that the module loads when they are needed, which its process has to be able to read then.
containment::Paths files_of_parts();

}  // namespace foliant::hosts::acrobat
