#pragma once

#include <memory>

#include "automation/object.h"
#include "hosts/office/excel/spreadsheet.h"
#include "hosts/office/running.h"

namespace foliant::hosts::office {

/// A workbook as automation sees it. Members:
///
///     workbook   Worksheets(Index), Close(SaveChanges)
///     worksheet  Name, PageSetup, Range(Cell1)
///     PageSetup  PrintGridlines, Orientation (1 portrait, 2 landscape), LeftHeader, CenterHeader, RightHeader,
///                LeftFooter, CenterFooter, RightFooter, TopMargin, LeftMargin, RightMargin, BottomMargin,
///                HeaderMargin, FooterMargin, FirstPageNumber
///     range      PrintOut(Copies, Preview, ActivePrinter, PrintToFile, Collate, PrToFileName)
///
/// Headers and footers are read back without their codes. PrintOut prints one copy, whole; see print_job.h.
/// Close takes False, because this Excel writes no workbooks. A workbook that is closed raises 1004 from every
/// member.
automation::ObjectPtr make_workbook(std::shared_ptr<Running> running, std::shared_ptr<Spreadsheet> workbook);

}  // namespace foliant::hosts::office
