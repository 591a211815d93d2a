#pragma once

#include "hosts/acrobat/structure/insertion.h"

namespace foliant::hosts::acrobat::structure {

/// Appends the source's bookmarks to those of the target: all of them, or those that lead to inserted pages
/// and those above such.
void add_bookmarks(const Insertion& insertion);

}  // namespace foliant::hosts::acrobat::structure
