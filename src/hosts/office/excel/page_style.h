#pragma once

#include <cstdint>

#include "hosts/office/excel/sheets.h"

namespace foliant::hosts::office {

using PageStyle = css::uno::Reference<css::beans::XPropertySet>;

/// How the pages of a sheet look.
PageStyle page_style(const WorkbookModel& workbook, std::int32_t sheet);

/// The same, to be changed: where other sheets have the style as well, the sheet gets a copy of its own.
PageStyle own_page_style(const WorkbookModel& workbook, std::int32_t sheet);

/// Lays the paper so; the margins stay.
void lay_page(const PageStyle& page, bool landscape);

/// In hundredths of a millimetre.
sal_Int32 shorter_side(const PageStyle& page);

}  // namespace foliant::hosts::office
