#pragma once

#include <optional>
#include <string>

#include "automation/error.h"
#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// Asks by a dialog with one line to fill in: what was entered; nothing when it was cancelled.
std::optional<std::string> ask(Machine& machine, std::string caption);

/// Opens a file as a window does: one that a window shows already is that document; a password that it needs
/// is asked for in the dialog "Password", again and again while the answer is wrong. Raises when the file
/// cannot be opened, and when nobody answers.
DocumentPtr open_file(Program& program, const std::string& path);

/// The dialog "Open" asks which file to open; what is opened is shown. False when it was cancelled. Raises
/// what opening does.
bool open_by_dialog(Program& program);

/// The failure of a file whose password is not known.
automation::Error password_needed(const std::string& path);

}  // namespace foliant::hosts::acrobat
