#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::office {

/// Starts Microsoft Visio's stand-in: the object behind "Visio.Application". Its members, and those of what it
/// hands out, by Visio's own names:
///
///     application  Documents, Quit
///     Documents    Count, Open(FileName)
///     document     Printer, Print, Close
///
/// Print prints every page in its own size. Printer takes a printer's plain name. After Quit, which closes
/// the drawings that are still open, every member but Quit raises 462. `machine` outlives the object. Raises 429
/// when LibreOffice Draw is not there; it is started with the first drawing.
automation::ObjectPtr make_visio_application(Machine& machine);

}  // namespace foliant::hosts::office
