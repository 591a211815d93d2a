#pragma once

#include <optional>
#include <qpdf/QPDFObjectHandle.hh>
#include <string_view>

#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::structure {

/// The bytes of a stream as they stand in the document's file, with its filters. Nothing when they are not
/// there as they are: the file is encrypted or damaged in that place, or the document was changed.
std::optional<std::string_view> stream_bytes(Pdf& pdf, QPDFObjectHandle stream);

}  // namespace foliant::hosts::acrobat::structure
