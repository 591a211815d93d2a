#pragma once

#include <filesystem>
#include <string>

#include "hosts/office/excel/page_style.h"
#include "hosts/office/excel/sheets.h"
#include "hosts/office/excel/spreadsheet.h"

namespace foliant::hosts::office {

// Headers and footers. Excel measures from the edge of the paper both to a header and to the cells, which it may
// overlap; LibreOffice has a band of its own for it between the margin and the cells.

/// In hundredths of a millimetre: from the edge of the paper to the cells, and to the header or footer.
sal_Int32 body_margin(const PageStyle& page, Band band);
sal_Int32 band_margin(const PageStyle& page, Band band);
/// The other one of the two stays, unless the band would not begin on its own side of the cells.
void set_body_margin(const PageStyle& page, Band band, sal_Int32 margin);
void set_band_margin(const PageStyle& page, Band band, sal_Int32 margin);

/// The text in one place, without codes.
std::string band_slot_text(const PageStyle& page, Band band, BandSlot slot);

/// Puts a text with Excel's codes in one place of the band, which is there from then on; what stands behind &L, &C or &R in
/// the place that these name. `workbook` makes what is put in for each page; `file` is where its user has it.
void set_band_slot(const WorkbookModel& workbook, const PageStyle& page, Band band, BandSlot slot,
                   const std::string& text, const std::filesystem::path& file);

}  // namespace foliant::hosts::office
