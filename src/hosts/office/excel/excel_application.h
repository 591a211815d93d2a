#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::office {

/// Starts Microsoft Excel's stand-in: the object behind "Excel.Application". Its members, and those of what it
/// hands out, by Excel's own names and with Excel's own arguments:
///
///     application  Workbooks, DisplayAlerts, ActivePrinter, InchesToPoints(Inches), Quit
///     Workbooks    Count, Open(FileName, ..., Password, WriteResPassword, ...)
///     workbook     see workbook.h
///
/// ActivePrinter takes a printer's plain name. After Quit, which closes the workbooks that are still open, every
/// member but Quit raises 462. `machine` outlives the object. Raises 429 when LibreOffice Calc is not there; it
/// is started with the first workbook.
automation::ObjectPtr make_excel_application(Machine& machine);

}  // namespace foliant::hosts::office
