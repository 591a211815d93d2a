#pragma once

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// The dialog "Create PDF from Web Page" asks for an address; what is there is shown as a PDF, in a window that
/// is captioned with the address and "/". False when the dialog was cancelled. Where there is no page the
/// dialog "Error: Nothing Done" comes up, if anybody is there to dismiss it, and then it raises why.
bool capture_page_by_dialog(Program& program);

}  // namespace foliant::hosts::acrobat
