#pragma once

#include "hosts/office/word/page_styles.h"

namespace foliant::hosts::office {

/// Whether the pages of a style are wider than high.
bool lies_in_landscape(const PageStyle& style);

/// Turns one page style (see TextDocument::set_orientation).
void turn_page(const PageStyle& style, bool landscape);

}  // namespace foliant::hosts::office
