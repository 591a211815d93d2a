#pragma once

#include <string>

namespace foliant::hosts::office {

/// Draws the form fields of a PDF of LibreOffice's: each becomes a part of its page, as it looks on a screen, and cannot be
/// filled in any more. A PDF without fields is given back as it is. Raises std::runtime_error for one that is damaged.
std::string with_fields_drawn(std::string pdf);

}  // namespace foliant::hosts::office
