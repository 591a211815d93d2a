#pragma once

#include <string>
#include <vector>

namespace foliant::hosts::distiller {

/// The paths that a multi-file driver runs, in order. Its lines are the `prun` definition, an empty line, and
/// then nothing but "(path) prun". A path is whatever stands between the parentheses of its line: line ends,
/// parentheses and backslashes in it are letters like others.
///
/// Naming a file there lets the document read it, so only lines that the call itself wrote may be asked
/// about, never the content of a file. Throws DistillError for lines that are no driver.
std::vector<std::string> files_of_driver(const std::vector<std::string>& lines);

/// The driver of those paths as the interpreter gets it, in which a path cannot be read as anything else.
std::string driver_program(const std::vector<std::string>& paths);

}  // namespace foliant::hosts::distiller
