#pragma once

#include "hosts/distiller/security.h"

namespace foliant::hosts::distiller::protector {

/// Writes the PDF that `plain` is open for to `locked`, encrypted with AES-256 (revision 6), and makes sure
/// that it is. Opens no file. Throws std::exception with qpdf's reason.
void protect_pdf(int plain, int locked, const Security& security);

}  // namespace foliant::hosts::distiller::protector
