#pragma once

#include <cstdint>
#include <string>

#include "automation/value.h"
#include "engines/host_program.h"

namespace foliant::converters {

// How a worksheet is set up before it is printed: each step sets properties of `page`, the sheet's `PageSetup`.
// All raise what Excel raises.

/// In inches; a margin of 0 or less stays as the workbook has it.
struct Margins {
    double top = 0;
    double left = 0;
    double right = 0;
    double bottom = 0;
    double header = 0;
    double footer = 0;
};

/// What is the same on every sheet of a call.
struct SheetStyle {
    bool grid = false;   ///< whether the lines between the cells are printed
    std::string header;  ///< with Excel's own codes; a blank one leaves all headers as they are
    std::int32_t header_alignment = 1;  ///< 0 left, 1 centre, any other number right
    std::string footer;                 ///< likewise
    std::int32_t footer_alignment = 0;  ///< 0 left, 2 right, any other number centre
    Margins margins;
};

void set_grid_lines(const automation::Value& page, bool grid);

/// Turns the pages; without `landscape` they stand upright, whatever they did before.
void set_orientation(const automation::Value& page, bool landscape);

/// Sets the one header and the one footer that are wished for, and the margins.
void set_texts_and_margins(const engines::HostProgram& excel, const automation::Value& page,
                           const SheetStyle& style);

/// The number that the first printed page shows.
void set_first_page_number(const automation::Value& page, std::int32_t number);

}  // namespace foliant::converters
