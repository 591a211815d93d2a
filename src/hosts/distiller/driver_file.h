#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts::distiller {

/// Whether a file that begins so may be a driver; a cheap look before all of it is read.
bool may_be_driver(std::string_view head);

/// The paths that a multi-file driver runs, in order, as their bytes stand in it.
///
/// A driver is the `prun` definition, an empty line, and then nothing but `(path) prun` lines, each line
/// ended by LF or CR LF. Naming a file there lets the document read it, so anything else in the text (an
/// escape in a path, an unbalanced parenthesis, one foreign line) makes it an ordinary PostScript file: no
/// value is returned.
std::optional<std::vector<std::string>> files_of_driver(std::string_view text);

}  // namespace foliant::hosts::distiller
