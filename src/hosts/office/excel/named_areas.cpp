#include "hosts/office/excel/named_areas.h"

#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XDatabaseRange.hpp>
#include <com/sun/star/sheet/XNamedRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <optional>
#include <string>

#include "automation/text.h"

namespace foliant::hosts::office {

namespace {

using css::beans::XPropertySet;
using css::table::CellRangeAddress;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

/// What has that name, in any case, among what a property of a sheet or workbook lists.
css::uno::Any listed(const css::uno::Reference<css::uno::XInterface>& holder, const char* list,
                     std::string_view name) {
    const Reference<XPropertySet> properties(holder, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> all(properties->getPropertyValue(to_uno(list)), UNO_QUERY);
    if (!all.is()) return {};
    const auto known = all->getElementNames();
    for (sal_Int32 i = 0; i < known.getLength(); ++i)
        if (automation::equal_ignoring_case(from_uno(known.getConstArray()[i]), name))
            return all->getByName(known.getConstArray()[i]);
    return {};
}

CellArea area_of(const CellRangeAddress& address, std::int32_t sheet, std::string_view name) {
    if (address.Sheet != sheet)
        throw NoRange("The name \"" + std::string(name) + "\" stands for cells of another worksheet");
    return {address.StartColumn, address.StartRow, address.EndColumn, address.EndRow};
}

/// The column of an area in whose first row that text stands, without that row.
std::optional<CellArea> column_headed(const Sheet& sheet, CellArea area, std::string_view heading) {
    for (std::int32_t column = area.first_column; column <= area.last_column; ++column) {
        const Reference<css::text::XTextRange> cell(sheet->getCellByPosition(column, area.first_row),
                                                    UNO_QUERY_THROW);
        if (!automation::equal_ignoring_case(from_uno(cell->getString()), heading)) continue;
        area.first_column = area.last_column = column;
        ++area.first_row;
        return area;
    }
    return std::nullopt;
}

/// A table is its records, unless what stands behind its name says otherwise.
std::optional<CellArea> area_of_table(const WorkbookModel& workbook, std::int32_t sheet,
                                      std::string_view text) {
    const std::size_t bracket = text.find('[');
    const std::string_view part = bracket == std::string_view::npos ? "" : text.substr(bracket);
    const Reference<css::sheet::XDatabaseRange> table(
        listed(workbook, "DatabaseRanges", text.substr(0, bracket)), UNO_QUERY);
    if (!table.is()) return std::nullopt;
    const Reference<XPropertySet> properties(table, UNO_QUERY_THROW);
    const bool has_headers = uno_property<bool>(properties, "ContainsHeader");
    CellArea area = area_of(table->getDataArea(), sheet, text);
    const auto is_part = [&](std::string_view wanted) {
        return automation::equal_ignoring_case(part, wanted);
    };
    if (is_part("[#All]")) return area;
    if (is_part("[#Headers]") && has_headers) {
        area.last_row = area.first_row;
        return area;
    }
    if (uno_property<bool>(properties, "TotalsRow")) --area.last_row;
    if (!part.empty() && !is_part("[#Data]")) {
        const auto column =
            has_headers && part.ends_with(']')
                ? column_headed(sheet_at(workbook, sheet), area, part.substr(1, part.size() - 2))
                : std::nullopt;
        if (!column) throw NoRange("\"" + std::string(text) + "\" is no part of a table");
        return column;
    }
    if (has_headers) ++area.first_row;
    return area;
}

/// One area, as LibreOffice writes it: "$Sales.$A$1:$B$4".
std::optional<CellArea> area_written(const WorkbookModel& workbook, std::int32_t sheet, std::string_view name,
                                     const std::string& written) {
    try {
        const Reference<css::sheet::XCellRangeAddressable> cells(
            sheet_at(workbook, sheet)->getCellRangeByName(to_uno(written)), UNO_QUERY_THROW);
        return area_of(cells->getRangeAddress(), sheet, name);
    } catch (const css::uno::Exception&) {
        return std::nullopt;
    }
}

std::vector<CellArea> areas_written(const WorkbookModel& workbook, std::int32_t sheet, std::string_view name,
                                    const std::string& content) {
    std::vector<CellArea> areas;
    for (const std::string_view part : split_areas(content)) {
        std::optional<CellArea> area = area_of_table(workbook, sheet, part);
        if (!area) area = area_written(workbook, sheet, name, std::string(part));
        if (!area) throw NoRange("The name \"" + std::string(name) + "\" does not stand for cells");
        areas.push_back(*area);
    }
    return areas;
}

}  // namespace

std::vector<CellArea> areas_named(const WorkbookModel& workbook, std::int32_t sheet, std::string_view name) {
    css::uno::Any found = listed(sheet_at(workbook, sheet), "NamedRanges", name);
    if (!found.hasValue()) found = listed(workbook, "NamedRanges", name);
    if (!found.hasValue()) {
        const auto table = area_of_table(workbook, sheet, name);
        return table ? std::vector{*table} : std::vector<CellArea>();
    }
    const Reference<css::sheet::XCellRangeReferrer> referrer(found, UNO_QUERY_THROW);
    const Reference<css::sheet::XCellRangeAddressable> cells(referrer->getReferredCells(), UNO_QUERY);
    if (cells.is()) return {area_of(cells->getRangeAddress(), sheet, name)};
    const Reference<css::sheet::XNamedRange> named(found, UNO_QUERY_THROW);
    return areas_written(workbook, sheet, name, from_uno(named->getContent()));
}

}  // namespace foliant::hosts::office
