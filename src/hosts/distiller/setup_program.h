#pragma once

#include <string>

#include "hosts/distiller/source_file.h"

namespace foliant::hosts::distiller {

/// PostScript that is run once before a job, trusted and outside of any document:
///
/// - RunFile finds the files that a driver names in the workspace, and no others;
/// - fonts of files that cairo has written get names that differ.
std::string setup_program(const Source& source);

}  // namespace foliant::hosts::distiller
