#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::acrobat::text {

/// An address as it is written, as the ASCII that links hold: the name of a host in its transliteration, other
/// foreign letters percent-encoded. "" when its host's name cannot be one.
std::string uri(std::u32string_view address);

}  // namespace foliant::hosts::acrobat::text
