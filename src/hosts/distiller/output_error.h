#pragma once

#include <filesystem>

#include "hosts/distiller/distill_error.h"

namespace foliant::hosts::distiller {

/// Says in words that a PDF could not be written: on which file, why, and what to do.
DistillError output_error(const std::filesystem::filesystem_error& failure);

/// Whether the disk that `folder` is on can take no more; false also where that cannot be known.
bool disk_is_full(const std::filesystem::path& folder);

}  // namespace foliant::hosts::distiller
