#pragma once

#include <cstdint>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/acrobat/document.h"

namespace foliant::hosts::acrobat {

/// The words of a page whose middle lies in a rectangle ("AcroExch.Rect", from the lower left corner of the
/// page), in reading order. Members:
///
///     GetNumText()     how many words there are
///     GetText(index)   a word, from 0, with the blank behind it; the last one of a line, with CR LF. What was
///                      broken at the end of a line is one word.
///
/// Raises 13 for what is no rectangle, 9 for a page that the document does not have, and a failure that names
/// the file when its text cannot be read.
automation::ObjectPtr select_text(Document& document, std::int32_t page, const automation::Value& rectangle);

}  // namespace foliant::hosts::acrobat
