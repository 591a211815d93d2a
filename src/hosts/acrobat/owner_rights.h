#pragma once

#include <string_view>

#include "hosts/acrobat/document.h"
#include "hosts/acrobat/structure/rights.h"

namespace foliant::hosts::acrobat {

/// Why something may not be done with a document.
inline constexpr const char* owner_only = "whoever protected it allows that only with the owner's password.";

/// Whether that may be done with it. Where its owner has forbidden it the dialog "Password" asks for the owner's
/// password, if anybody is there to answer.
bool may(Document& document, structure::Right right);

/// Raises what may not be done ("may not be printed"), and why, where that is so.
void require_right(Document& document, structure::Right right, std::string_view refusal);

}  // namespace foliant::hosts::acrobat
