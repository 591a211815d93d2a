#pragma once

#include <cstdint>

#include "automation/object.h"
#include "hosts/acrobat/document.h"

namespace foliant::hosts::acrobat {

/// The page of that number, from 0. Raises 9 for one that the document does not have.
structure::Page page_of(Document& document, std::int32_t number);

/// A page of a document. Members:
///
///     GetSize()        a point, whose x and y are the width and the height of the page as it is shown, in
///                      whole points
automation::ObjectPtr make_page(Document& document, std::int32_t number);

}  // namespace foliant::hosts::acrobat
