#pragma once

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat::view {

/// Has the page in view read aloud when the call is over. Raises when no document is open.
bool read_page_aloud(Program& program);

/// The same from that page to the end.
bool read_to_end_aloud(Program& program);

}  // namespace foliant::hosts::acrobat::view
