#pragma once

#include <cstdint>
#include <optional>
#include <qpdf/QPDFObjectHandle.hh>

#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::outline {

/// The page, from 0, that a bookmark leads to, by itself or by a name; nothing where it leads to no page of the
/// document.
std::optional<std::int32_t> page_behind(structure::Pdf& pdf, QPDFObjectHandle bookmark);

}  // namespace foliant::hosts::acrobat::outline
