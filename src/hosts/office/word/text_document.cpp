#include "hosts/office/word/text_document.h"

#include "hosts/office/engine/translated.h"
#include "hosts/office/word/page_numbers.h"
#include "hosts/office/word/page_orientation.h"
#include "hosts/office/word/page_styles.h"

namespace foliant::hosts::office {

void TextDocument::set_orientation(bool landscape) {
    translated(loaded(), "turn the pages of", [&] {
        const LayoutPause pause(loaded().component);
        for (const PageStyle& style : page_styles_in_use(loaded().component))
            turn_page(style, landscape);
    });
}

bool TextDocument::is_landscape() const {
    return translated(loaded(), "measure the pages of",
                      [&] { return lies_in_landscape(first_section_styles(loaded().component).first_page); });
}

void TextDocument::add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) {
    translated(loaded(), "number the pages of", [&] {
        const LayoutPause pause(loaded().component);
        add_number(loaded().component, band, alignment, on_first_page);
    });
}

}  // namespace foliant::hosts::office
