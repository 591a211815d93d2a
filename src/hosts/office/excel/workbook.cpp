#include "hosts/office/excel/workbook.h"

#include <array>
#include <utility>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/excel/excel_error.h"

namespace foliant::hosts::office {

using automation::ObjectPtr;
using automation::to_text;
using automation::Value;

namespace {

constexpr std::int32_t portrait = 1;
constexpr std::int32_t landscape = 2;

/// A sheet of an open workbook.
struct Place {
    std::shared_ptr<Running> running;
    std::shared_ptr<Spreadsheet> workbook;
    std::int32_t sheet;
};

bool is_true(const Value& argument) {
    return is_given(argument) && automation::to_bool(argument);
}

void set_orientation(const Place& place, std::int32_t orientation) {
    if (orientation != portrait && orientation != landscape)
        throw excel_error("An orientation is 1 (portrait) or 2 (landscape), not " +
                          std::to_string(orientation) + ".");
    place.workbook->set_landscape(place.sheet, orientation == landscape);
}

void add_bands(LateBound& setup, const Place& place) {
    struct Slot {
        const char* name;
        Band band;
        BandSlot slot;
    };
    static constexpr std::array slots{Slot{"LeftHeader", Band::header, BandSlot::left},
                                      Slot{"CenterHeader", Band::header, BandSlot::center},
                                      Slot{"RightHeader", Band::header, BandSlot::right},
                                      Slot{"LeftFooter", Band::footer, BandSlot::left},
                                      Slot{"CenterFooter", Band::footer, BandSlot::center},
                                      Slot{"RightFooter", Band::footer, BandSlot::right}};
    for (const Slot& slot : slots)
        setup.add_property(
            slot.name, [place, slot] { return place.workbook->band_text(place.sheet, slot.band, slot.slot); },
            [place, slot](const Value& text) {
                place.workbook->set_band_text(place.sheet, slot.band, slot.slot, to_text(text));
            });
}

void add_margins(LateBound& setup, const Place& place) {
    static constexpr std::array sides{
        std::pair("TopMargin", Margin::top),       std::pair("LeftMargin", Margin::left),
        std::pair("RightMargin", Margin::right),   std::pair("BottomMargin", Margin::bottom),
        std::pair("HeaderMargin", Margin::header), std::pair("FooterMargin", Margin::footer)};
    for (const auto& [name, side] : sides)
        setup.add_property(
            name, [place, side = side] { return place.workbook->margin(place.sheet, side); },
            [place, side = side](const Value& points) {
                place.workbook->set_margin(place.sheet, side, automation::to_double(points));
            });
}

ObjectPtr make_page_setup(const Place& place) {
    auto setup = std::make_shared<LateBound>(microsoft_excel.name);
    setup->add_property(
        "PrintGridlines", [place] { return place.workbook->grid_lines(place.sheet); },
        [place](const Value& value) {
            place.workbook->set_grid_lines(place.sheet, automation::to_bool(value));
        });
    setup->add_property(
        "Orientation", [place] { return place.workbook->is_landscape(place.sheet) ? landscape : portrait; },
        [place](const Value& value) { set_orientation(place, automation::to_int32(value)); });
    add_bands(*setup, place);
    add_margins(*setup, place);
    setup->add_property(
        "FirstPageNumber", [place] { return place.workbook->first_page_number(place.sheet); },
        [place](const Value& value) {
            place.workbook->set_first_page_number(place.sheet, automation::to_int32(value));
        });
    return setup;
}

void print_out(const Place& place, const std::string& range, const Bound& arguments) {
    enum Parameter : std::size_t { from, to, copies, preview, active_printer, print_to_file, collate, file };
    if (is_given(arguments[from]) || is_given(arguments[to]) || is_true(arguments[preview]) ||
        (is_given(arguments[copies]) && automation::to_int32(arguments[copies]) != 1))
        throw excel_error("A range is printed whole, once, and without a preview.");
    PrintRequest request;
    if (is_true(arguments[print_to_file])) {
        if (!is_given(arguments[file])) throw excel_error("Printing to a file takes the file's name.");
        request.output = to_text(arguments[file]);
    }
    if (is_given(arguments[active_printer]))
        place.running->choose_printer(to_text(arguments[active_printer]));
    place.workbook->print_only(place.sheet, range);
    print(*place.workbook, request, place.running->active_printer(), place.running->machine(),
          microsoft_excel);
}

ObjectPtr make_range(const Place& place, std::string range) {
    // Said where the range is asked for, as Excel does.
    place.workbook->print_only(place.sheet, range);
    auto object = std::make_shared<LateBound>(microsoft_excel.name);
    object->add_method(
        "PrintOut",
        {"From", "To", "Copies", "Preview", "ActivePrinter", "PrintToFile", "Collate", "PrToFileName"},
        [place, range = std::move(range)](const Bound& arguments) {
            print_out(place, range, arguments);
            return Value();
        });
    return object;
}

ObjectPtr make_worksheet(const Place& place) {
    auto worksheet = std::make_shared<LateBound>(microsoft_excel.name);
    worksheet->add_property(
        "Name", [place] { return place.workbook->sheet_names().at(static_cast<std::size_t>(place.sheet)); });
    worksheet->add_property("PageSetup", [place] { return make_page_setup(place); });
    worksheet->add_method("Range", {"Cell1"}, [place](const Bound& arguments) {
        if (!is_given(arguments[0])) throw automation::Error(automation::RuntimeError::argument_not_optional);
        return make_range(place, to_text(arguments[0]));
    });
    return worksheet;
}

void close(Spreadsheet& workbook, const Value& save_changes) {
    if (is_true(save_changes))
        throw excel_error(workbook.title() +
                          " cannot be saved: workbooks are only read here. Close it with False.");
    workbook.close();
}

}  // namespace

ObjectPtr make_workbook(std::shared_ptr<Running> running, std::shared_ptr<Spreadsheet> workbook) {
    auto object = std::make_shared<LateBound>(microsoft_excel.name);
    object->add_method("Worksheets", {"Index"}, [running, workbook](const Bound& arguments) {
        if (!is_given(arguments[0])) throw automation::Error(automation::RuntimeError::argument_not_optional);
        return make_worksheet({running, workbook, workbook->find_sheet(arguments[0])});
    });
    object->add_method("Close", {"SaveChanges", "FileName", "RouteWorkbook"},
                       [workbook](const Bound& arguments) {
                           close(*workbook, arguments[0]);
                           return Value();
                       });
    return object;
}

}  // namespace foliant::hosts::office
