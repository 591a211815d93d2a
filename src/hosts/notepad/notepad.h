#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::notepad {

/// Notepad, which is a program and no automation server: the machine that runs the command line
/// `notepad.exe /p "FILE"` calls what that comes to. Member:
///
///     PrintFile(FileName)    prints a text file on the default printer (see print_text), and on the PDF printer
///                            to the file that its dialog is answered with
///
/// It raises 53, 70 or 75 for a file that cannot be read, what goes wrong with the output, and 0x80004005 for a
/// file that holds no text or more than 256 MiB, and when the dialog is cancelled. `machine` outlives the object.
automation::ObjectPtr make_notepad(Machine& machine);

}  // namespace foliant::hosts::notepad
