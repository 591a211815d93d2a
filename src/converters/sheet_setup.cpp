#include "converters/sheet_setup.h"

#include "automation/text.h"

namespace foliant::converters {

using automation::trim_blanks;
using automation::Value;

namespace {

constexpr std::int16_t portrait_pages = 1;
constexpr std::int16_t landscape_pages = 2;

// An alignment that is none of the three goes to the right in a header and to the centre in a footer. Callers
// have the one and the other on their pages, so neither changes.

const char* header_slot(std::int32_t alignment) noexcept {
    if (alignment == 1) return "CenterHeader";
    return alignment == 0 ? "LeftHeader" : "RightHeader";
}

const char* footer_slot(std::int32_t alignment) noexcept {
    if (alignment == 0) return "LeftFooter";
    return alignment == 2 ? "RightFooter" : "CenterFooter";
}

void set_margin(const engines::HostProgram& excel, const Value& page, const char* margin, double inches) {
    if (inches > 0) page.set(margin, excel.application.call("InchesToPoints", {inches}));
}

}  // namespace

void set_grid_lines(const Value& page, bool grid) {
    page.set("PrintGridlines", grid);
}

void set_orientation(const Value& page, bool landscape) {
    page.set("Orientation", landscape ? landscape_pages : portrait_pages);
}

void set_texts_and_margins(const engines::HostProgram& excel, const Value& page, const SheetStyle& style) {
    if (!trim_blanks(style.header).empty()) page.set(header_slot(style.header_alignment), style.header);
    if (!trim_blanks(style.footer).empty()) page.set(footer_slot(style.footer_alignment), style.footer);
    const Margins& margins = style.margins;
    set_margin(excel, page, "TopMargin", margins.top);
    set_margin(excel, page, "LeftMargin", margins.left);
    set_margin(excel, page, "RightMargin", margins.right);
    set_margin(excel, page, "BottomMargin", margins.bottom);
    set_margin(excel, page, "HeaderMargin", margins.header);
    set_margin(excel, page, "FooterMargin", margins.footer);
}

void set_first_page_number(const Value& page, std::int32_t number) {
    page.set("FirstPageNumber", number);
}

}  // namespace foliant::converters
