#pragma once

#include "automation/value.h"
#include "hosts/office/word/opened.h"

namespace foliant::hosts::office {

/// Word's Content of a document, with the `Font` of all of it: `Name`, `Size`, `Color`, `Bold`, `Italic`,
/// `Underline` and `Reset`. Sizes and colours that Word does not have raise 4608.
automation::ObjectPtr make_content(const DocumentPtr& document);

}  // namespace foliant::hosts::office
