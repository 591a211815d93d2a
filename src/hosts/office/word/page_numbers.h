#pragma once

#include "hosts/office/word/document.h"
#include "hosts/office/word/page_styles.h"

namespace foliant::hosts::office {

/// Adds a page number to the first section (see TextDocument::add_page_number).
void add_number(const DocumentModel& document, PageBand band, NumberAlignment alignment, bool on_first_page);

}  // namespace foliant::hosts::office
