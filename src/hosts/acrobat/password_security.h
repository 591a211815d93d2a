#pragma once

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// Asks for a password that is to open the document in front, and has the document protected with it (AES,
/// 256 bits) when it is saved next. Three dialogs come one after the other:
///
///     Password Security - Settings                       tick "Require a password", enter the password
///     Adobe Acrobat - Confirm Open Document Password     enter it again, until it is the same
///     Adobe Acrobat                                      a notice that it takes effect with the next save
///
/// False when one was cancelled. Raises when nobody answers, and for a password that is empty or
/// longer than the 127 bytes in UTF-8 that a PDF takes.
bool protect_active_document(Program& program);

}  // namespace foliant::hosts::acrobat
