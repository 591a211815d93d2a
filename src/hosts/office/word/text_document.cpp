#include "hosts/office/word/text_document.h"

#include <cmath>

#include "hosts/office/engine/translated.h"
#include "hosts/office/word/content_font.h"
#include "hosts/office/word/page_margins.h"
#include "hosts/office/word/page_numbers.h"
#include "hosts/office/word/page_orientation.h"
#include "hosts/office/word/page_styles.h"

namespace foliant::hosts::office {

namespace {

constexpr double hundredths_of_mm_in_point = 2540.0 / 72;

}  // namespace

TextDocument::TextDocument(std::unique_ptr<LoadedDocument> loaded) : OfficeDocument(std::move(loaded)) {}

TextDocument::~TextDocument() = default;

void TextDocument::set_orientation(bool landscape) {
    translated(loaded(), "turn the pages of", [&] {
        pause_layout();
        for (const PageStyle& style : page_styles_in_use(loaded().component))
            turn_page(style, landscape);
    });
}

bool TextDocument::is_landscape() const {
    return translated(loaded(), "measure the pages of",
                      [&] { return lies_in_landscape(first_section_styles(loaded().component).first_page); });
}

float TextDocument::margin(Edge edge) const {
    return translated(loaded(), "measure the pages of", [&] {
        const PageStyle style = first_section_styles(loaded().component).first_page;
        return static_cast<float>(text_margin(style, edge) / hundredths_of_mm_in_point);
    });
}

void TextDocument::set_margin(Edge edge, float points) {
    translated(loaded(), "set the margins of", [&] {
        pause_layout();
        for (const PageStyle& style : page_styles_in_use(loaded().component)) {
            const double wanted = points * hundredths_of_mm_in_point;
            if (!(wanted >= 0 && wanted <= largest_text_margin(style, edge)))
                throw no_such_margin(loaded().file.path, points);
            set_text_margin(style, edge, static_cast<sal_Int32>(std::lround(wanted)));
        }
    });
}

void TextDocument::with_content_font(const std::function<void(TextFont&)>& use) {
    translated(loaded(), "set the font of", [&] {
        pause_layout();
        if (!content_font_) content_font_ = std::make_unique<ContentFont>(loaded().component);
        use(*content_font_);
    });
}

void TextDocument::add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) {
    translated(loaded(), "number the pages of", [&] {
        pause_layout();
        add_number(loaded().component, band, alignment, on_first_page);
    });
}

}  // namespace foliant::hosts::office
