#include "hosts/office/word/page_numbers.h"

#include <algorithm>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/style/NumberingType.hpp>
#include <com/sun/star/style/ParagraphAdjust.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/PageNumberType.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>

#include "hosts/office/engine/uno_support.h"
#include "hosts/office/word/page_rules.h"

namespace foliant::hosts::office {

namespace {

using css::container::XEnumerationAccess;
using css::text::XText;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

std::string property(PageBand band, std::string_view name) {
    return (band == PageBand::header ? "Header" : "Footer") + std::string(name);
}

/// Switches the header or footer on within the margin, as Word does, so that the text keeps its place.
void switch_on(const PageStyle& style, PageBand band) {
    if (uno_property<bool>(style, property(band, "IsOn"))) return;
    const char* margin_name = band == PageBand::header ? "TopMargin" : "BottomMargin";
    const auto margin = uno_property<sal_Int32>(style, margin_name);
    const sal_Int32 distance = std::min(edge_distance, margin / 2);
    const sal_Int32 height = std::max(margin - distance, least_height);
    set_uno_property(style, property(band, "IsOn"), true);
    set_uno_property(style, margin_name, distance);
    set_uno_property(style, property(band, "IsDynamicHeight"), true);
    set_uno_property(style, property(band, "DynamicSpacing"), true);
    set_uno_property(style, property(band, "BodyDistance"), height - least_height);
    set_uno_property(style, property(band, "Height"), height);
}

/// Gives the first page a header and footer of its own: copies of what it shows, hence before the number is
/// added. Both are on before that, because switching one on later makes LibreOffice share again and copy
/// anew.
void unshare_first_page(const PageStyle& style) {
    switch_on(style, PageBand::header);
    switch_on(style, PageBand::footer);
    set_uno_property(style, "FirstIsShared", false);
}

/// Whether a paragraph holds nothing, neither text nor a picture nor a field.
bool is_empty(const css::uno::Any& paragraph) {
    const Reference<XEnumerationAccess> portions(paragraph, UNO_QUERY);
    if (!portions.is()) return false;  // a table
    const auto each = portions->createEnumeration();
    while (each->hasMoreElements()) {
        const PageStyle portion(each->nextElement(), UNO_QUERY_THROW);
        const Reference<css::text::XTextRange> range(portion, UNO_QUERY_THROW);
        if (uno_property<rtl::OUString>(portion, "TextPortionType") != to_uno("Text") ||
            !range->getString().isEmpty())
            return false;
    }
    return true;
}

bool ends_with_empty_paragraph(const Reference<XText>& text) {
    const auto paragraphs = Reference<XEnumerationAccess>(text, UNO_QUERY_THROW)->createEnumeration();
    css::uno::Any last;
    while (paragraphs->hasMoreElements())
        last = paragraphs->nextElement();
    return last.hasValue() && is_empty(last);
}

css::style::ParagraphAdjust paragraph_adjust(NumberAlignment alignment) {
    switch (alignment) {
        case NumberAlignment::left:
            return css::style::ParagraphAdjust_LEFT;
        case NumberAlignment::right:
            return css::style::ParagraphAdjust_RIGHT;
        case NumberAlignment::center:
            break;
    }
    return css::style::ParagraphAdjust_CENTER;
}

void append_number(const DocumentModel& document, const Reference<XText>& text, PageBand band,
                   NumberAlignment alignment) {
    const Reference<css::lang::XMultiServiceFactory> factory(document, UNO_QUERY_THROW);
    const PageStyle number(factory->createInstance(to_uno("com.sun.star.text.TextField.PageNumber")),
                           UNO_QUERY_THROW);
    set_uno_property(number, "NumberingType", css::style::NumberingType::PAGE_DESCRIPTOR);
    set_uno_property(number, "SubType", css::text::PageNumberType_CURRENT);

    const bool has_room = ends_with_empty_paragraph(text);
    const Reference<css::text::XTextRange> end(text->createTextCursorByRange(text->getEnd()),
                                               UNO_QUERY_THROW);
    if (!has_room) text->insertControlCharacter(end, css::text::ControlCharacter::PARAGRAPH_BREAK, false);
    const PageStyle paragraph(end, UNO_QUERY_THROW);
    set_uno_property(paragraph, "ParaStyleName", to_uno(property(band, "")));
    set_uno_property(paragraph, "ParaAdjust", static_cast<sal_Int16>(paragraph_adjust(alignment)));
    text->insertTextContent(end, Reference<css::text::XTextContent>(number, UNO_QUERY_THROW), false);
}

Reference<XText> band_text(const PageStyle& style, PageBand band, std::string_view which) {
    return uno_property<Reference<XText>>(style, property(band, which));
}

}  // namespace

void add_number(const DocumentModel& document, PageBand band, NumberAlignment alignment, bool on_first_page) {
    const SectionStyles styles = first_section_styles(document);
    switch_on(styles.other_pages, band);
    if (!on_first_page && !styles.has_title_style()) unshare_first_page(styles.other_pages);
    append_number(document, band_text(styles.other_pages, band, "Text"), band, alignment);
    if (!on_first_page) return;
    if (styles.has_title_style()) {
        switch_on(styles.first_page, band);
        append_number(document, band_text(styles.first_page, band, "Text"), band, alignment);
    } else if (!uno_property<bool>(styles.first_page, "FirstIsShared")) {
        append_number(document, band_text(styles.first_page, band, "TextFirst"), band, alignment);
    }
}

}  // namespace foliant::hosts::office
