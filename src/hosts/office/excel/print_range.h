#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/office/excel/cell_areas.h"
#include "hosts/office/excel/sheets.h"

namespace foliant::hosts::office {

/// A text that names no range of a sheet, or one without anything in it; `what()` says why.
struct NoRange : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The areas that a range of that sheet consists of (see Spreadsheet::print_only). Throws NoRange.
std::vector<CellArea> areas_of(const WorkbookModel& workbook, std::int32_t sheet, const std::string& range);

/// Has the workbook print those areas of that sheet, each on pages of its own, and nothing else.
void set_only_print_areas(const WorkbookModel& workbook, std::int32_t sheet,
                          const std::vector<CellArea>& areas);

}  // namespace foliant::hosts::office
