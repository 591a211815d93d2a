#include "hosts/office/excel/page_bands.h"

#include <algorithm>
#include <com/sun/star/awt/FontSlant.hpp>
#include <com/sun/star/awt/FontStrikeout.hpp>
#include <com/sun/star/awt/FontUnderline.hpp>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XHeaderFooterContent.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/FilenameDisplayFormat.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <iterator>
#include <map>

#include "hosts/office/excel/header_text.h"

namespace foliant::hosts::office {

namespace {

using css::sheet::XHeaderFooterContent;
using css::text::XText;
using css::text::XTextCursor;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

constexpr sal_Int32 usual_band_margin = 762;  // Excel's 0.3 inches
constexpr double hundredth_mm_per_point = 2540.0 / 72;

const char* name_of(Band band) {
    return band == Band::header ? "Header" : "Footer";
}
std::string property_of(Band band, const char* property) {
    return std::string(name_of(band)) + property;
}
const char* margin_of(Band band) {
    return band == Band::header ? "TopMargin" : "BottomMargin";
}
/// The content that all pages have which have none of their own.
std::string content_of(Band band) {
    return "RightPage" + property_of(band, "Content");
}

bool is_on(const PageStyle& page, Band band) {
    return uno_property<bool>(page, property_of(band, "IsOn"));
}

sal_Int32 height(const PageStyle& page, Band band) {
    return uno_property<sal_Int32>(page, property_of(band, "Height"));
}
sal_Int32 distance(const PageStyle& page, Band band) {
    return uno_property<sal_Int32>(page, property_of(band, "BodyDistance"));
}

/// Places the band between the two distances from the edge, its text being as high as it is: a footer's text
/// ends where the band does, so the room that is left is between it and the cells.
void place(const PageStyle& page, Band band, sal_Int32 from_edge, sal_Int32 to_cells, sal_Int32 text) {
    const sal_Int32 room = std::max<sal_Int32>(to_cells - from_edge, 0);
    const bool fits = room >= text;
    set_uno_property(page, margin_of(band), from_edge);
    set_uno_property(page, property_of(band, "IsDynamicHeight"), !fits);
    set_uno_property(page, property_of(band, "BodyDistance"), fits ? room - text : sal_Int32{0});
    set_uno_property(page, property_of(band, "Height"), std::max(room, text));
}

sal_Int32 text_height(const PageStyle& page, Band band) {
    return std::max<sal_Int32>(height(page, band) - distance(page, band), 0);
}

Reference<XHeaderFooterContent> content(const PageStyle& page, Band band) {
    return {page->getPropertyValue(to_uno(content_of(band))), UNO_QUERY_THROW};
}

Reference<XText> slot_of(const Reference<XHeaderFooterContent>& content, BandSlot slot) {
    switch (slot) {
        case BandSlot::left:
            return content->getLeftText();
        case BandSlot::center:
            return content->getCenterText();
        default:
            return content->getRightText();
    }
}

/// The place that a code names; `usual` where there is none.
BandSlot slot_named(char code, BandSlot usual) {
    switch (code) {
        case 'l':
            return BandSlot::left;
        case 'c':
            return BandSlot::center;
        case 'r':
            return BandSlot::right;
        default:
            return usual;
    }
}

/// The font of cells that have no other.
struct UsualFont {
    rtl::OUString name;
    float size = 10;
};

UsualFont usual_font(const WorkbookModel& workbook) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(workbook, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> styles(
        supplier->getStyleFamilies()->getByName(to_uno("CellStyles")), UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> cells(styles->getByName(to_uno("Default")), UNO_QUERY_THROW);
    return {uno_property<rtl::OUString>(cells, "CharFontName"), uno_property<float>(cells, "CharHeight")};
}

void apply(const PieceStyle& style, const UsualFont& usual, const Reference<css::beans::XPropertySet>& text) {
    using namespace css::awt;
    set_uno_property(text, "CharFontName", style.font ? to_uno(*style.font) : usual.name);
    set_uno_property(text, "CharHeight", style.size ? static_cast<float>(*style.size) : usual.size);
    // Text takes over how the text before it looks, unless it is told.
    constexpr sal_Int32 automatic = -1;
    set_uno_property(text, "CharColor", style.color ? static_cast<sal_Int32>(*style.color) : automatic);
    set_uno_property(text, "CharWeight", style.bold ? FontWeight::BOLD : FontWeight::NORMAL);
    set_uno_property(text, "CharPosture", style.italic ? FontSlant_ITALIC : FontSlant_NONE);
    set_uno_property(text, "CharUnderline",
                     sal_Int16{style.double_underlined ? FontUnderline::DOUBLE
                               : style.underlined      ? FontUnderline::SINGLE
                                                       : FontUnderline::NONE});
    set_uno_property(text, "CharStrikeout",
                     sal_Int16{style.struck ? FontStrikeout::SINGLE : FontStrikeout::NONE});
    constexpr sal_Int16 third = 33;
    constexpr sal_Int8 smaller = 58;
    constexpr sal_Int8 whole = 100;
    const bool raised = style.superscript || style.subscript;
    const sal_Int16 up = style.superscript ? third : static_cast<sal_Int16>(-third);
    set_uno_property(text, "CharEscapement", raised ? up : sal_Int16{0});
    set_uno_property(text, "CharEscapementHeight", raised ? smaller : whole);
}

Reference<css::text::XTextContent> field(const WorkbookModel& workbook, HeaderPiece::Kind kind) {
    using enum HeaderPiece::Kind;
    const Reference<css::lang::XMultiServiceFactory> factory(workbook, UNO_QUERY_THROW);
    const auto make = [&](const char* service) {
        return Reference<css::beans::XPropertySet>(
            factory->createInstance(to_uno(std::string("com.sun.star.text.TextField.") + service)),
            UNO_QUERY_THROW);
    };
    Reference<css::beans::XPropertySet> made;
    switch (kind) {
        case page:
            made = make("PageNumber");
            break;
        case pages:
            made = make("PageCount");
            break;
        case sheet:
            made = make("SheetName");
            break;
        case date:
        case time:
            made = make("DateTime");
            set_uno_property(made, "IsDate", kind == date);
            break;
        default:
            made = make("FileName");
            set_uno_property(made, "FileFormat", sal_Int16{css::text::FilenameDisplayFormat::NAME_AND_EXT});
    }
    return {made, UNO_QUERY_THROW};
}

/// Puts a piece behind what is there.
void append(const WorkbookModel& workbook, const Reference<XText>& text, const HeaderPiece& piece,
            const UsualFont& usual) {
    const Reference<XTextCursor> cursor = text->createTextCursor();
    const Reference<css::text::XTextRange> place(cursor, UNO_QUERY_THROW);
    cursor->gotoEnd(false);
    sal_Int32 length = 1;  // a field counts as one character
    if (piece.kind == HeaderPiece::Kind::text) {
        const rtl::OUString characters = to_uno(piece.text);
        length = characters.getLength();
        text->insertString(place, characters, false);
    } else {
        text->insertTextContent(place, field(workbook, piece.kind), false);
    }
    cursor->gotoEnd(false);
    cursor->goLeft(static_cast<sal_Int16>(length), true);
    apply(piece.style, usual, Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW));
}

/// LibreOffice has no field for the folder alone, and knows the folder of its own copy of the file at most.
void name_folder(std::vector<HeaderPiece>& pieces, const std::filesystem::path& file) {
    const std::string folder = (file.parent_path() / "").string();
    for (HeaderPiece& piece : pieces)
        if (piece.kind == HeaderPiece::Kind::folder) piece = {HeaderPiece::Kind::text, folder, piece.style};
}

/// Makes room for a text of that height; a band that is there keeps its place.
void make_room(const PageStyle& page, Band band, sal_Int32 text) {
    const sal_Int32 to_cells = body_margin(page, band);
    const bool was_on = is_on(page, band);
    const sal_Int32 former = was_on ? text_height(page, band) : 0;
    const sal_Int32 from_edge = was_on ? band_margin(page, band) : std::min(usual_band_margin, to_cells);
    set_uno_property(page, property_of(band, "IsOn"), true);
    place(page, band, from_edge, to_cells, std::max(text, former));
}

}  // namespace

sal_Int32 body_margin(const PageStyle& page, Band band) {
    return uno_property<sal_Int32>(page, margin_of(band)) + (is_on(page, band) ? height(page, band) : 0);
}

sal_Int32 band_margin(const PageStyle& page, Band band) {
    return is_on(page, band) ? uno_property<sal_Int32>(page, margin_of(band)) : usual_band_margin;
}

void set_body_margin(const PageStyle& page, Band band, sal_Int32 margin) {
    if (is_on(page, band))
        place(page, band, std::min(band_margin(page, band), margin), margin, text_height(page, band));
    else
        set_uno_property(page, margin_of(band), margin);
}

void set_band_margin(const PageStyle& page, Band band, sal_Int32 margin) {
    if (!is_on(page, band)) return;
    place(page, band, margin, std::max(body_margin(page, band), margin), text_height(page, band));
}

std::string band_slot_text(const PageStyle& page, Band band, BandSlot slot) {
    return is_on(page, band) ? from_uno(slot_of(content(page, band), slot)->getString()) : std::string();
}

void set_band_slot(const WorkbookModel& workbook, const PageStyle& page, Band band, BandSlot slot,
                   const std::string& text, const std::filesystem::path& file) {
    std::map<BandSlot, std::vector<HeaderPiece>> places{{slot, {}}};
    for (const HeaderSection& section : sections_of(text)) {
        std::vector<HeaderPiece>& place = places[slot_named(section.place, slot)];
        std::ranges::move(parse_header(section.text), std::back_inserter(place));
        name_folder(place, file);
    }
    const UsualFont usual = usual_font(workbook);
    double points = 0;
    for (const auto& [place, pieces] : places)
        points = std::max(points, height_of(pieces, static_cast<double>(usual.size)));
    make_room(page, band, static_cast<sal_Int32>(points * hundredth_mm_per_point));
    const Reference<XHeaderFooterContent> changed = content(page, band);
    for (const auto& [place, pieces] : places) {
        const Reference<XText> there = slot_of(changed, place);
        there->setString({});
        for (const HeaderPiece& piece : pieces)
            append(workbook, there, piece, usual);
    }
    page->setPropertyValue(to_uno(content_of(band)), css::uno::Any(changed));
}

}  // namespace foliant::hosts::office
