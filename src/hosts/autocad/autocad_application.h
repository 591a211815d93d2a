#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::autocad {

/// Starts AutoCAD's stand-in: the object behind "AutoCAD.Application". Its members, and those of what it hands
/// out, by AutoCAD's own names:
///
///     application  Application, Documents, Quit
///     Documents    Count, Open(Name, ReadOnly, Password)
///     document     Name, FullName, ReadOnly, Layouts, ActiveLayout, Plot, Close(SaveChanges, FileName)
///     Layouts      Count, Item(Index); asked with an index it gives the layout itself
///     layout       Name, TabOrder, ModelType
///     Plot         PlotToDevice(plotConfig), PlotToFile(plotFile, plotConfig)
///
/// Layouts are told by name or number, 0 being the model. Plot plots the active layout, at first the model, as
/// one page. Drawings are only read, whatever ReadOnly says. After Quit, which closes them, every member but Quit
/// raises 462. `machine` outlives the object.
automation::ObjectPtr make_autocad_application(Machine& machine);

}  // namespace foliant::hosts::autocad
