#pragma once

#include "hosts/acrobat/program.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::acrobat {

/// "AcroExch.App": the program. Members:
///
///     Show()                     True
///     GetActiveDoc()             the window in front; one that is not valid when there is none
///     MenuItemExecute(name)      what the menu item does; see menu.h. Raises for an item that is not known
///     Exit()                     closes all windows without saving; True
automation::ObjectPtr make_application(ProgramPtr program);

}  // namespace foliant::hosts::acrobat
