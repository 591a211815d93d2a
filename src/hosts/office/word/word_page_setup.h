#pragma once

#include "automation/value.h"
#include "hosts/office/word/opened.h"

namespace foliant::hosts::office {

/// Word's PageSetup of a whole document: `Orientation`, and the four margins in points.
automation::ObjectPtr make_page_setup(const DocumentPtr& document);

}  // namespace foliant::hosts::office
