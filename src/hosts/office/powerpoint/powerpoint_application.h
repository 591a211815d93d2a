#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::office {

/// Starts Microsoft PowerPoint's stand-in: the object behind "Powerpoint.Application". Its members, and those of
/// what it hands out, by PowerPoint's own names and with PowerPoint's own arguments:
///
///     application    Visible, WindowState, Presentations, Quit
///     Presentations  Count, Open(FileName)
///     presentation   PageSetup, PrintOptions, PrintOut(From, To, PrintToFile, Copies), Close
///     PageSetup      SlideOrientation (1 horizontal, 2 vertical)
///     PrintOptions   ActivePrinter
///
/// Visible and WindowState are kept, without effect: there is no window. From and To are slides, -1 the first
/// and the last one; others than there are raise 80048240. ActivePrinter takes a printer's plain name. After
/// Quit, which closes the presentations that are still open, every member but Quit raises 462. `machine`
/// outlives the object. Raises 429 when LibreOffice Impress is not there; it is started with the first
/// presentation.
automation::ObjectPtr make_powerpoint_application(Machine& machine);

}  // namespace foliant::hosts::office
