#pragma once

#include <memory>
#include <qpdf/QPDF.hh>

#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::print {

/// The pages from `first` to `last`, from 0, as they come out of a printer: with the annotations and form
/// fields that are meant to be printed, which are part of the pages then, and without any others. Layers are
/// as visible as in the document. It refers to `document`, which has to live as long as the result. Throws
/// structure::Unreadable, and what qpdf throws.
std::shared_ptr<QPDF> printed_pages(structure::Pdf& document, std::size_t first, std::size_t last);

}  // namespace foliant::hosts::acrobat::print
