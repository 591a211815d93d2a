#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::acrobat {

/// Why a file cannot be opened that is neither a PDF nor an image of a kind that is known here: "it is no image
/// that can be read: it is text", without the file's name. `path` tells what its user takes it for.
std::string why_unknown(std::string_view path, std::string_view bytes);

}  // namespace foliant::hosts::acrobat
