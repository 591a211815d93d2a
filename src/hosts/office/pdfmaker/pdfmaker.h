#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::office {

/// Acrobat's PDFMaker: the object behind "AdobePDFMakerX.Word". Member:
///
///     LaunchDocument(FileName, Flags)    makes a PDF of a document and has Acrobat show it, under the document's
///                                        name up to its first dot and "pdf"; 0
///
/// The PDF is shown when the call returns, and has no file of its own until Acrobat saves it. Raises
/// 0x80004005 with the reason where the document is not converted. `machine` outlives the object. Raises 429 when
/// LibreOffice is not there; it is started with the first document.
automation::ObjectPtr make_pdfmaker(Machine& machine);

}  // namespace foliant::hosts::office
