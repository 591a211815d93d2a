#include "hosts/office/excel/spreadsheet.h"

#include <cmath>
#include <com/sun/star/container/XNamed.hpp>

#include "automation/coerce.h"
#include "automation/text.h"
#include "hosts/office/engine/translated.h"
#include "hosts/office/excel/excel_error.h"
#include "hosts/office/excel/page_bands.h"
#include "hosts/office/excel/page_style.h"
#include "hosts/office/excel/print_range.h"
#include "hosts/office/excel/sheets.h"

namespace foliant::hosts::office {

namespace {

using automation::Value;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

constexpr double hundredth_mm_per_point = 2540.0 / 72;
constexpr std::int32_t count_from_one = -4105;  // Excel's word for it
constexpr std::int32_t most_pages = 32767;

std::string list_of(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "\"" : ", \"") + name + "\"";
    return list;
}

/// The number in an index, or in a text that is one; 0 where there is none.
std::int32_t number_in(const Value& index) {
    try {
        return automation::to_int32(index);
    } catch (const automation::Error&) {
        return 0;
    }
}

const char* property_of(Margin side) {
    return side == Margin::left ? "LeftMargin" : "RightMargin";
}

}  // namespace

std::vector<std::string> Spreadsheet::sheet_names() const {
    return translated(loaded(), "read the worksheets of", [&] {
        std::vector<std::string> names;
        const auto sheets = sheets_of(loaded().component);
        const sal_Int32 count = sheets->getCount();
        names.reserve(static_cast<std::size_t>(count));
        for (sal_Int32 i = 0; i < count; ++i)
            names.push_back(from_uno(
                Reference<css::container::XNamed>(sheets->getByIndex(i), UNO_QUERY_THROW)->getName()));
        return names;
    });
}

std::int32_t Spreadsheet::find_sheet(const Value& index) const {
    const std::vector<std::string> names = sheet_names();
    if (const auto* text = index.if_holds<std::string>())
        for (std::size_t i = 0; i < names.size(); ++i)
            if (automation::equal_ignoring_case(names[i], *text)) return static_cast<std::int32_t>(i);
    const std::int32_t number = number_in(index);
    if (number >= 1 && static_cast<std::size_t>(number) <= names.size()) return number - 1;
    throw microsoft_excel.error(automation::RuntimeError::subscript_out_of_range,
                                loaded().file.path.string() + " has no worksheet " +
                                    automation::to_text(index) + ". It has " + list_of(names) + ".");
}

bool Spreadsheet::grid_lines(std::int32_t sheet) const {
    return translated(loaded(), "read the page setup of",
                      [&] { return uno_property<bool>(page_style(loaded().component, sheet), "PrintGrid"); });
}

void Spreadsheet::set_grid_lines(std::int32_t sheet, bool printed) {
    translated(loaded(), "set up the pages of",
               [&] { set_uno_property(own_page_style(loaded().component, sheet), "PrintGrid", printed); });
}

bool Spreadsheet::is_landscape(std::int32_t sheet) const {
    return translated(loaded(), "read the page setup of", [&] {
        return uno_property<bool>(page_style(loaded().component, sheet), "IsLandscape");
    });
}

void Spreadsheet::set_landscape(std::int32_t sheet, bool landscape) {
    translated(loaded(), "turn the pages of",
               [&] { lay_page(own_page_style(loaded().component, sheet), landscape); });
}

std::string Spreadsheet::band_text(std::int32_t sheet, Band band, BandSlot slot) const {
    return translated(loaded(), "read the page setup of",
                      [&] { return band_slot_text(page_style(loaded().component, sheet), band, slot); });
}

void Spreadsheet::set_band_text(std::int32_t sheet, Band band, BandSlot slot, const std::string& text) {
    translated(loaded(), "set up the pages of", [&] {
        set_band_slot(loaded().component, own_page_style(loaded().component, sheet), band, slot, text,
                      loaded().file.path);
    });
}

void Spreadsheet::remove_bands() {
    translated(loaded(), "set up the pages of", [&] {
        const sal_Int32 count = sheets_of(loaded().component)->getCount();
        for (sal_Int32 sheet = 0; sheet < count; ++sheet)
            for (const char* band : {"HeaderIsOn", "FooterIsOn"})
                set_uno_property(page_style(loaded().component, sheet), band, false);
    });
}

double Spreadsheet::margin(std::int32_t sheet, Margin side) const {
    return translated(loaded(), "read the page setup of", [&] {
        const PageStyle page = page_style(loaded().component, sheet);
        const auto hundredths = [&] {
            switch (side) {
                case Margin::top:
                    return body_margin(page, Band::header);
                case Margin::bottom:
                    return body_margin(page, Band::footer);
                case Margin::header:
                    return band_margin(page, Band::header);
                case Margin::footer:
                    return band_margin(page, Band::footer);
                default:
                    return uno_property<sal_Int32>(page, property_of(side));
            }
        }();
        return hundredths / hundredth_mm_per_point;
    });
}

void Spreadsheet::set_margin(std::int32_t sheet, Margin side, double points) {
    translated(loaded(), "set up the pages of", [&] {
        const PageStyle page = own_page_style(loaded().component, sheet);
        const double hundredths = std::round(points * hundredth_mm_per_point);
        if (!(hundredths >= 0 && hundredths < shorter_side(page)))
            throw excel_error("A margin of " + automation::to_text(points) +
                              " points leaves no room on the pages of " + title() + ".");
        const auto margin = static_cast<sal_Int32>(hundredths);
        switch (side) {
            case Margin::top:
                return set_body_margin(page, Band::header, margin);
            case Margin::bottom:
                return set_body_margin(page, Band::footer, margin);
            case Margin::header:
                return set_band_margin(page, Band::header, margin);
            case Margin::footer:
                return set_band_margin(page, Band::footer, margin);
            default:
                set_uno_property(page, property_of(side), margin);
        }
    });
}

std::int32_t Spreadsheet::first_page_number(std::int32_t sheet) const {
    return translated(loaded(), "read the page setup of", [&] {
        const auto number = uno_property<sal_Int16>(page_style(loaded().component, sheet), "FirstPageNumber");
        return number == 0 ? count_from_one : std::int32_t{number};
    });
}

void Spreadsheet::set_first_page_number(std::int32_t sheet, std::int32_t number) {
    if (number != count_from_one && (number < 1 || number > most_pages))
        throw excel_error("The first page of " + title() + " cannot have the number " +
                          std::to_string(number) + ". Give one from 1 to 32767.");
    translated(loaded(), "set up the pages of", [&] {
        set_uno_property(own_page_style(loaded().component, sheet), "FirstPageNumber",
                         static_cast<sal_Int16>(number == count_from_one ? 0 : number));
    });
}

void Spreadsheet::print_only(std::int32_t sheet, const std::string& range) {
    translated(loaded(), "choose what to print of", [&] {
        const WorkbookModel& workbook = loaded().component;
        if (print_areas_.empty())
            for (std::int32_t i = 0; i < sheets_of(workbook)->getCount(); ++i)
                print_areas_.push_back(print_areas(workbook, i));
        try {
            set_only_print_areas(
                workbook, sheet,
                areas_of(workbook, sheet, range, print_areas_.at(static_cast<std::size_t>(sheet))));
        } catch (const NoRange& reason) {
            throw excel_error(std::string(reason.what()) + ": worksheet \"" +
                              sheet_names().at(static_cast<std::size_t>(sheet)) + "\" of " +
                              loaded().file.path.string() +
                              ". Give cells such as A1:F40, columns such as A:C, several of them with commas "
                              "between, or a name that the workbook defines.");
        }
    });
}

}  // namespace foliant::hosts::office
