#include "hosts/office/excel/print_range.h"

#include <algorithm>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>

#include "automation/text.h"

namespace foliant::hosts::office {

namespace {

using css::table::CellRangeAddress;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

/// The last column and row of a sheet that hold something, nothing for an empty sheet.
struct End {
    std::int32_t column = -1;
    std::int32_t row = -1;
};

End end_of_cells(const Sheet& sheet) {
    const Reference<css::sheet::XUsedAreaCursor> cursor(sheet->createCursor(), UNO_QUERY_THROW);
    cursor->gotoStartOfUsedArea(false);
    cursor->gotoEndOfUsedArea(true);
    const Reference<css::sheet::XCellRangeAddressable> range(cursor, UNO_QUERY_THROW);
    const CellRangeAddress used = range->getRangeAddress();
    const bool one_cell = used.EndColumn == 0 && used.EndRow == 0;
    if (one_cell && sheet->getCellByPosition(0, 0)->getType() == css::table::CellContentType_EMPTY) return {};
    return {used.EndColumn, used.EndRow};
}

/// The column or row that holds that place, which is measured in hundredths of a millimetre; `position` says
/// where one begins.
template <class Position>
std::int32_t index_at(std::int32_t place, std::int32_t count, Position position) {
    std::int32_t low = 0;
    std::int32_t high = count - 1;
    while (low < high) {
        const std::int32_t middle = low + (high - low + 1) / 2;
        if (position(middle) <= place)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

css::awt::Point place_of_cell(const Sheet& sheet, std::int32_t column, std::int32_t row) {
    const Reference<css::beans::XPropertySet> cell(sheet->getCellByPosition(column, row), UNO_QUERY_THROW);
    return uno_property<css::awt::Point>(cell, "Position");
}

/// The same with charts and drawings.
End end_of_content(const WorkbookModel& workbook, std::int32_t number) {
    const Sheet sheet = sheet_at(workbook, number);
    End end = end_of_cells(sheet);
    const Reference<css::drawing::XDrawPagesSupplier> supplier(workbook, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> shapes(supplier->getDrawPages()->getByIndex(number),
                                                         UNO_QUERY_THROW);
    const Reference<css::table::XColumnRowRange> lines(sheet, UNO_QUERY_THROW);
    for (sal_Int32 i = 0; i < shapes->getCount(); ++i) {
        const Reference<css::drawing::XShape> shape(shapes->getByIndex(i), UNO_QUERY_THROW);
        const auto corner = shape->getPosition();
        const auto size = shape->getSize();
        const auto column = index_at(corner.X + size.Width, lines->getColumns()->getCount(),
                                     [&](std::int32_t index) { return place_of_cell(sheet, index, 0).X; });
        const auto row = index_at(corner.Y + size.Height, lines->getRows()->getCount(),
                                  [&](std::int32_t index) { return place_of_cell(sheet, 0, index).Y; });
        end = {std::max(end.column, column), std::max(end.row, row)};
    }
    return end;
}

/// Cuts whole columns and rows where the content of the sheet ends.
CellArea clipped(CellArea area, const WorkbookModel& workbook, std::int32_t sheet, std::string_view text) {
    if (!area.whole_columns && !area.whole_rows) return area;
    const End end = end_of_content(workbook, sheet);
    if (area.whole_columns) area.last_row = end.row;
    if (area.whole_rows) area.last_column = end.column;
    const bool beyond = area.whole_columns ? area.first_column > end.column : area.first_row > end.row;
    if (beyond || area.last_row < area.first_row || area.last_column < area.first_column)
        throw NoRange("There is nothing in " + std::string(text));
    return area;
}

/// Takes "Sheet1!" or "'My sheet'!" away; throws for another sheet than that of the name.
std::string_view without_sheet(std::string_view text, const std::string& sheet_name) {
    const std::size_t mark = text.rfind('!');
    if (mark == std::string_view::npos) return text;
    std::string_view named = text.substr(0, mark);
    if (named.size() >= 2 && named.front() == '\'' && named.back() == '\'')
        named = named.substr(1, named.size() - 2);
    if (!automation::equal_ignoring_case(named, sheet_name))
        throw NoRange("\"" + std::string(text) + "\" lies on another worksheet");
    return text.substr(mark + 1);
}

void append(std::vector<CellArea>& areas, const std::vector<CellArea>& more) {
    areas.insert(areas.end(), more.begin(), more.end());
}

}  // namespace

std::vector<CellArea> print_areas(const WorkbookModel& workbook, std::int32_t sheet) {
    const auto addresses =
        Reference<css::sheet::XPrintAreas>(sheet_at(workbook, sheet), UNO_QUERY_THROW)->getPrintAreas();
    std::vector<CellArea> areas;
    for (sal_Int32 i = 0; i < addresses.getLength(); ++i) {
        const CellRangeAddress& address = addresses.getConstArray()[i];
        areas.push_back({address.StartColumn, address.StartRow, address.EndColumn, address.EndRow});
    }
    return areas;
}

std::vector<CellArea> areas_of(const WorkbookModel& workbook, std::int32_t sheet, const std::string& range,
                               const std::vector<CellArea>& print_area) {
    const Sheet cells = sheet_at(workbook, sheet);
    const std::string sheet_name =
        from_uno(Reference<css::container::XNamed>(cells, UNO_QUERY_THROW)->getName());
    std::vector<CellArea> areas;
    for (const std::string_view part : split_areas(range)) {
        const std::string_view text = without_sheet(part, sheet_name);
        const std::size_t before = areas.size();
        if (const auto area = parse_area(text))
            areas.push_back(clipped(*area, workbook, sheet, part));
        else if (automation::equal_ignoring_case(text, "Print_Area"))
            append(areas, print_area);
        else
            append(areas, areas_named(workbook, sheet, text));
        if (areas.size() == before) throw NoRange("\"" + std::string(part) + "\" is no range of cells");
    }
    return areas;
}

void set_only_print_areas(const WorkbookModel& workbook, std::int32_t sheet,
                          const std::vector<CellArea>& areas) {
    const sal_Int32 count = sheets_of(workbook)->getCount();
    for (sal_Int32 i = 0; i < count; ++i) {
        std::vector<CellRangeAddress> addresses;
        if (i == sheet)
            for (const CellArea& area : areas)
                addresses.emplace_back(static_cast<sal_Int16>(sheet), area.first_column, area.first_row,
                                       area.last_column, area.last_row);
        Reference<css::sheet::XPrintAreas>(sheet_at(workbook, i), UNO_QUERY_THROW)
            ->setPrintAreas(uno_sequence(addresses));
    }
}

}  // namespace foliant::hosts::office
