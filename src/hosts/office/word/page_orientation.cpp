#include "hosts/office/word/page_orientation.h"

#include <algorithm>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

/// The distances from the paper's edges to the text, in 1/100 mm.
struct Margins {
    sal_Int32 left;
    sal_Int32 top;
    sal_Int32 right;
    sal_Int32 bottom;
};

/// LibreOffice counts a page margin up to the header or footer, Word up to the text; these are the names of
/// the properties that make up the difference.
struct Band {
    const char* margin;
    const char* is_on;
    const char* height;
    const char* distance;
};
constexpr Band header{"TopMargin", "HeaderIsOn", "HeaderHeight", "HeaderBodyDistance"};
constexpr Band footer{"BottomMargin", "FooterIsOn", "FooterHeight", "FooterBodyDistance"};

sal_Int32 text_margin(const PageStyle& style, const Band& band) {
    const auto margin = uno_property<sal_Int32>(style, band.margin);
    return uno_property<bool>(style, band.is_on) ? margin + uno_property<sal_Int32>(style, band.height)
                                                 : margin;
}

void set_text_margin(const PageStyle& style, const Band& band, sal_Int32 wanted) {
    if (!uno_property<bool>(style, band.is_on)) {
        set_uno_property(style, band.margin, wanted);
        return;
    }
    // The header or footer stays where it is and as high as its text; the space towards the text gives way.
    const auto height = uno_property<sal_Int32>(style, band.height);
    const auto distance = uno_property<sal_Int32>(style, band.distance);
    const sal_Int32 change = std::max(wanted - text_margin(style, band), -distance);
    set_uno_property(style, band.distance, distance + change);
    set_uno_property(style, band.height, height + change);
}

Margins margins_of(const PageStyle& style) {
    return {uno_property<sal_Int32>(style, "LeftMargin"), text_margin(style, header),
            uno_property<sal_Int32>(style, "RightMargin"), text_margin(style, footer)};
}

}  // namespace

bool lies_in_landscape(const PageStyle& style) {
    return uno_property<sal_Int32>(style, "Width") > uno_property<sal_Int32>(style, "Height");
}

void turn_page(const PageStyle& style, bool landscape) {
    const auto width = uno_property<sal_Int32>(style, "Width");
    const auto height = uno_property<sal_Int32>(style, "Height");
    if (width == height || lies_in_landscape(style) == landscape) return;
    const Margins old = margins_of(style);
    set_uno_property(style, "IsLandscape", landscape);
    set_uno_property(style, "Width", height);
    set_uno_property(style, "Height", width);
    // A quarter turn: what was the top comes to lie left, and goes back there.
    const Margins turned = landscape ? Margins{old.top, old.right, old.bottom, old.left}
                                     : Margins{old.bottom, old.left, old.top, old.right};
    set_uno_property(style, "LeftMargin", turned.left);
    set_uno_property(style, "RightMargin", turned.right);
    set_text_margin(style, header, turned.top);
    set_text_margin(style, footer, turned.bottom);
}

}  // namespace foliant::hosts::office
