#pragma once

#include "hosts/office/page_styles.h"

namespace foliant::hosts {

/// Turns one page style (see TextDocument::set_orientation).
void turn_page(const PageStyle& style, bool landscape);

}  // namespace foliant::hosts
