#pragma once

#include <stdexcept>
#include <string_view>
#include <vector>

#include "hosts/office/excel/cell_areas.h"
#include "hosts/office/excel/sheets.h"

namespace foliant::hosts::office {

/// A text that names no range of a sheet, or one without anything in it; `what()` says why.
struct NoRange : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The areas of that sheet for which a name stands, in any case: one that the sheet or the workbook defines, or that of a
/// table, which is its records; behind it may stand [#All], [#Headers], [#Data] or the name of a column. None for a name that nobody has defined. Throws
/// NoRange for one that stands for something else.
std::vector<CellArea> areas_named(const WorkbookModel& workbook, std::int32_t sheet, std::string_view name);

}  // namespace foliant::hosts::office
