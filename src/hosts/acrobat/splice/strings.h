#pragma once

#include <string>
#include <string_view>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::splice {

/// Whether it is a text: "(abc)" or "<616263>".
bool is_string(const glance::Value& value);

/// The bytes that a string of a file stands for. Throws Doubt for what is none.
std::string string_bytes(std::string_view text);

/// A string of a file that stands for these bytes.
std::string string_text(std::string_view bytes);

}  // namespace foliant::hosts::acrobat::splice
