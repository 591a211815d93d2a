#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::distiller {

/// The bytes as a PostScript string, "<2f61>": no byte means anything to the interpreter but itself.
std::string postscript_string(std::string_view bytes);

}  // namespace foliant::hosts::distiller
