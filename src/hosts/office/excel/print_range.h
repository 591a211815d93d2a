#pragma once

#include <string>
#include <vector>

#include "hosts/office/excel/named_areas.h"

namespace foliant::hosts::office {

/// The areas of that sheet that are printed when nobody says what to print; none for all of it.
std::vector<CellArea> print_areas(const WorkbookModel& workbook, std::int32_t sheet);

/// The areas that a range of that sheet consists of (see Spreadsheet::print_only); `print_area` are those for which the
/// name Print_Area stands. Throws NoRange.
std::vector<CellArea> areas_of(const WorkbookModel& workbook, std::int32_t sheet, const std::string& range,
                               const std::vector<CellArea>& print_area);

/// Has the workbook print those areas of that sheet, each on pages of its own, and nothing else.
void set_only_print_areas(const WorkbookModel& workbook, std::int32_t sheet,
                          const std::vector<CellArea>& areas);

}  // namespace foliant::hosts::office
