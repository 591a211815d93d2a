#pragma once

#include <map>
#include <string>
#include <string_view>

namespace foliant::hosts::acrobat::splice {

/// An XMP packet with these properties, by their keys in the information dictionary, in place of what
/// `packet` says of them; the rest of it stays. A packet that cannot be understood is replaced.
std::string with_properties(std::string_view packet, const std::map<std::string, std::string>& properties);

}  // namespace foliant::hosts::acrobat::splice
