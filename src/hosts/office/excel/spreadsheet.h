#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "automation/value.h"
#include "hosts/office/excel/cell_areas.h"
#include "hosts/office/print/office_document.h"

namespace foliant::hosts::office {

/// The three places of a header or footer.
enum class BandSlot { left, center, right };
enum class Band { header, footer };

/// The four sides of a page, and where header and footer begin.
enum class Margin { top, left, right, bottom, header, footer };

/// A workbook open in LibreOffice. Worksheets are told by their numbers, from 0. What is set on the page of one
/// sheet stays with that sheet, also where the workbook's sheets share a page style.
class Spreadsheet : public OfficeDocument {
  public:
    using OfficeDocument::OfficeDocument;

    std::vector<std::string> sheet_names() const;

    /// The sheet that a name, in any case, or a number from 1 means; a text that is no sheet's name may be a
    /// number as well. Raises 9 with the names of the sheets that there are.
    std::int32_t find_sheet(const automation::Value& index) const;

    bool grid_lines(std::int32_t sheet) const;
    void set_grid_lines(std::int32_t sheet, bool printed);

    bool is_landscape(std::int32_t sheet) const;
    /// The margins stay where they are, as in Excel.
    void set_landscape(std::int32_t sheet, bool landscape);

    /// The text of a header or footer without its codes.
    std::string band_text(std::int32_t sheet, Band band, BandSlot slot) const;
    /// Sets it, with Excel's codes (see parse_header); the other places of the band stay as they are.
    void set_band_text(std::int32_t sheet, Band band, BandSlot slot, const std::string& text);

    /// Takes away the headers and footers of all sheets.
    void remove_bands();

    /// In points.
    double margin(std::int32_t sheet, Margin side) const;
    /// A header's margin is its distance from the edge of the paper, and has no effect without a header. Raises
    /// 1004 for a margin that leaves no room on the page.
    void set_margin(std::int32_t sheet, Margin side, double points);

    /// Nothing when pages are counted from 1.
    std::int32_t first_page_number(std::int32_t sheet) const;
    /// From 1 to 32767, or -4105 for counting from 1. Raises 1004 for another.
    void set_first_page_number(std::int32_t sheet, std::int32_t number);

    /// Has nothing printed but that range of the sheet: cells, columns, rows, several of these, the name of a table, one that
    /// the workbook defines, or Print_Area for what it says itself is to be printed of the sheet. Whole columns and rows are printed as far as there is something in the sheet.
    /// Raises 1004 for what is no range of the sheet, and for one without anything in it; says why.
    void print_only(std::int32_t sheet, const std::string& range);

  private:
    std::vector<std::vector<CellArea>>
        print_areas_;  ///< the workbook's own, of each sheet; none before one is printed
};

}  // namespace foliant::hosts::office
