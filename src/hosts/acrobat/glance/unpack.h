#pragma once

#include <string>
#include <string_view>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::glance {

/// What a stream holds, unpacked: `dictionary` is its own, `data` the bytes that stand in the file. Throws Doubt for
/// filters other than the usual one, and for what is damaged, or unpacks to more than any table of objects.
std::string unpacked(const Value& dictionary, std::string_view data);

}  // namespace foliant::hosts::acrobat::glance
