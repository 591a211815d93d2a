#include "hosts/office/word/content_font.h"

#include <com/sun/star/awt/FontSlant.hpp>
#include <com/sun/star/awt/FontUnderline.hpp>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/beans/XMultiPropertyStates.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr const char* scripts[]{"", "Asian", "Complex"};

/// All that this class sets.
std::vector<rtl::OUString> property_names() {
    std::vector<rtl::OUString> names{to_uno("CharUnderline"), to_uno("CharColor")};
    for (const char* property : {"CharFontName", "CharHeight", "CharWeight", "CharPosture"}) {
        for (const char* script : scripts)
            names.push_back(to_uno(std::string(property) + script));
    }
    return names;
}

PageStyle everything_in(const DocumentModel& document) {
    const auto text = Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText();
    const auto cursor = text->createTextCursor();
    cursor->gotoStart(false);
    cursor->gotoEnd(true);
    return {cursor, UNO_QUERY_THROW};
}

}  // namespace

ContentFont::ContentFont(const DocumentModel& document) : content_(everything_in(document)) {}

template <class T>
void ContentFont::set_in_all_scripts(std::string_view property, const T& value) {
    for (const char* script : scripts)
        set_uno_property(content_, std::string(property) + script, value);
}

std::string ContentFont::name() const {
    return from_uno(uno_property<rtl::OUString>(content_, "CharFontName"));
}

void ContentFont::set_name(const std::string& name) {
    set_in_all_scripts("CharFontName", to_uno(name));
}

float ContentFont::points() const {
    return uno_property<float>(content_, "CharHeight");
}

void ContentFont::set_points(float points) {
    set_in_all_scripts("CharHeight", points);
}

bool ContentFont::is_bold() const {
    return uno_property<float>(content_, "CharWeight") >= css::awt::FontWeight::BOLD;
}

void ContentFont::set_bold(bool bold) {
    set_in_all_scripts("CharWeight", bold ? css::awt::FontWeight::BOLD : css::awt::FontWeight::NORMAL);
}

bool ContentFont::is_italic() const {
    return uno_property<css::awt::FontSlant>(content_, "CharPosture") != css::awt::FontSlant_NONE;
}

void ContentFont::set_italic(bool italic) {
    set_in_all_scripts("CharPosture", italic ? css::awt::FontSlant_ITALIC : css::awt::FontSlant_NONE);
}

bool ContentFont::is_underlined() const {
    return uno_property<sal_Int16>(content_, "CharUnderline") != css::awt::FontUnderline::NONE;
}

void ContentFont::set_underlined(bool underlined) {
    set_uno_property(content_, "CharUnderline",
                     underlined ? css::awt::FontUnderline::SINGLE : css::awt::FontUnderline::NONE);
}

std::int32_t ContentFont::color() const {
    return uno_property<sal_Int32>(content_, "CharColor");
}

void ContentFont::set_color(std::int32_t color) {
    set_uno_property(content_, "CharColor", sal_Int32{color});
}

void ContentFont::reset() {
    Reference<css::beans::XMultiPropertyStates>(content_, UNO_QUERY_THROW)
        ->setPropertiesToDefault(uno_sequence(property_names()));
}

}  // namespace foliant::hosts::office
