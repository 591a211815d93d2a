#include "hosts/office/word/page_orientation.h"

#include "hosts/office/engine/uno_support.h"
#include "hosts/office/word/page_margins.h"

namespace foliant::hosts::office {

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
    set_text_margin(style, Edge::left, turned.left);
    set_text_margin(style, Edge::right, turned.right);
    set_text_margin(style, Edge::top, turned.top);
    set_text_margin(style, Edge::bottom, turned.bottom);
}

}  // namespace foliant::hosts::office
