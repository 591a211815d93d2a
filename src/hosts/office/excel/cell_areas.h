#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace foliant::hosts::office {

/// A rectangle of cells, counted from 0, both ends included.
struct CellArea {
    std::int32_t first_column = 0;
    std::int32_t first_row = 0;
    std::int32_t last_column = 0;
    std::int32_t last_row = 0;
    bool whole_columns = false;  ///< "A:C": its rows are those of the sheet
    bool whole_rows = false;     ///< "1:5": its columns are those of the sheet

    bool operator==(const CellArea&) const = default;
};

/// One area as Excel's users write it: "B2", "A1:F40", "$A$1:$F$40", "A:C", "1:5", in any case, corners in any
/// order. Nothing for anything else, a defined name among it, and for a cell beyond Excel's 16384 columns and
/// 1048576 rows.
std::optional<CellArea> parse_area(std::string_view text);

/// The parts of a list of areas, "A1:B2,D4", without the blanks around them; LibreOffice writes ";" or "~" between
/// them. What stands within quotation marks, as names of sheets do, separates nothing.
std::vector<std::string_view> split_areas(std::string_view list);

}  // namespace foliant::hosts::office
