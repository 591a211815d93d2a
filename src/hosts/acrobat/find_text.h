#pragma once

#include "hosts/acrobat/program.h"
#include "hosts/acrobat/text/finder.h"

namespace foliant::hosts::acrobat {

/// Looks for a text in the document that a window shows, from its start or behind what was found last, and
/// shows where it stands. Whether it was found; if not, the window shows what it did. Whoever watches the host
/// is told of the place, and of all others behind it if he wants to be.
///
/// Raises a failure that names the file when its text cannot be read.
bool find_text(View& view, const text::Query& query, bool from_start);

}  // namespace foliant::hosts::acrobat
