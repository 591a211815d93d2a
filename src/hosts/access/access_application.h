#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::access {

/// Starts Microsoft Access's stand-in: the object behind "Access.Application". Its members, and those of what it hands
/// out, by Access's own names and with Access's own arguments:
///
///     application  Printers, Printer, OpenCurrentDatabase(filepath, Exclusive, bstrPassword), DoCmd,
///                  CloseCurrentDatabase, Quit
///     Printers     Count, Item(number), from 1
///     printer      DeviceName
///     DoCmd        OpenReport(ReportName, View, FilterName, WhereCondition, WindowMode, OpenArgs),
///                  Close(ObjectType, ObjectName, Save)
///
/// A report is the table or query of that name, printed as a table; or, of a report of Access's own that keeps a query for
/// itself, what that gives: nobody here reads how it looks. Only view 0, which prints, is there. After Quit every member but Quit
/// raises 462. `machine` outlives the object.
automation::ObjectPtr make_access_application(Machine& machine);

}  // namespace foliant::hosts::access
