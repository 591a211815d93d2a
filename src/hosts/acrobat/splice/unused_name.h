#pragma once

#include <string>

namespace foliant::hosts::acrobat::splice {

/// A name like `name` that is not taken: itself, else with a number from `suffix` on.
template <typename IsTaken>
std::string unused_name(const std::string& name, int suffix, IsTaken is_taken) {
    std::string other = name;
    for (; is_taken(other); ++suffix)
        other = name + "_" + std::to_string(suffix);
    return other;
}

}  // namespace foliant::hosts::acrobat::splice
