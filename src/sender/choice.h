#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "sender/command.h"
#include "sender/windows_port.h"

namespace foliant::sender {

/// Which control of a dialog a command acts on. Nothing when the dialog has no such control, or it is not
/// ready to be acted on yet: not shown, not enabled, the option not ticked. Pure: no call is made.
///
/// - enter_text: the control of the class that has the focus, since that is where a user's typing would go;
///   else the first one that takes input.
/// - enter_option_text: the first control of the class that follows the option, once the option is ticked
///   and the control takes input. A dialog may have a second password that takes input all the time, and
///   that one must not get it.
/// - tick_option: the check box whose label speaks of opening ("Require a password to open the document"),
///   else the first check box. It is also chosen when it is ticked.
/// - press_default: the default button.
/// - dismiss_notice: the default button; in a notice without one, its only button.
std::optional<Control> choose(const Command& command, const std::vector<Control>& controls);

}  // namespace foliant::sender
