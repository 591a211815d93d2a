#pragma once

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// The menu item "Weblink:CreateURLs": asks in the dialog "Create Web Links" on which pages, makes links of the
/// addresses that are written there, and says in a notice "Adobe Acrobat" how many. An address that is a link
/// already stays as it is. False when the dialog was cancelled or no window is open.
///
/// Raises what the dialogs raise when nobody answers them, and a failure that names the file.
bool create_web_links(Program& program);

}  // namespace foliant::hosts::acrobat
