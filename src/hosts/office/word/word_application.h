#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::office {

/// Starts Microsoft Word's stand-in: the object behind "Word.Application". Its members, and those of what it
/// hands out, by Word's own names and with Word's own arguments:
///
///     application  Documents, DisplayAlerts, ActivePrinter, Quit
///     Documents    Count, Open(FileName, ..., PasswordDocument, ..., WritePasswordDocument, ...)
///     document     see word_document.h
///
/// ActivePrinter takes a printer's plain name and raises 5216 for one that the machine does not have. After
/// Quit, which closes the documents that are still open, every member but Quit raises 462.
/// `machine` outlives the object. Raises 429 when LibreOffice is not there;
/// it is started with the first document.
automation::ObjectPtr make_word_application(Machine& machine);

}  // namespace foliant::hosts::office
