#include "hosts/office/word/page_styles.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <set>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::container::XNameAccess;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

Reference<XNameAccess> page_styles(const DocumentModel& document) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(document, UNO_QUERY_THROW);
    return {supplier->getStyleFamilies()->getByName(to_uno("PageStyles")), UNO_QUERY_THROW};
}

PageStyle style_named(const Reference<XNameAccess>& styles, const std::string& name) {
    return {styles->getByName(to_uno(name)), UNO_QUERY_THROW};
}

/// The style that the very first paragraph or table asks for; none asks for the default one.
std::string first_page_style_name(const DocumentModel& document) {
    const Reference<css::text::XTextDocument> text_document(document, UNO_QUERY_THROW);
    const Reference<css::container::XEnumerationAccess> content(text_document->getText(), UNO_QUERY_THROW);
    const auto elements = content->createEnumeration();
    std::string name;
    if (elements->hasMoreElements()) {
        const PageStyle first(elements->nextElement(), UNO_QUERY);
        if (first.is() && first->getPropertySetInfo()->hasPropertyByName(to_uno("PageDescName")))
            name = from_uno(uno_property<rtl::OUString>(first, "PageDescName"));
    }
    return name.empty() ? "Standard" : name;
}

std::string follow_of(const PageStyle& style) {
    return from_uno(uno_property<rtl::OUString>(style, "FollowStyle"));
}

}  // namespace

std::vector<PageStyle> page_styles_in_use(const DocumentModel& document) {
    const auto styles = page_styles(document);
    const auto names = styles->getElementNames();
    // The default style does not count as used by the pages that have it without asking for it.
    std::set<std::string> used = {first_page_style_name(document)};
    for (sal_Int32 i = 0; i < names.getLength(); ++i) {
        const Reference<css::style::XStyle> style(styles->getByName(names.getConstArray()[i]), UNO_QUERY);
        if (style.is() && style->isInUse()) used.insert(from_uno(names.getConstArray()[i]));
    }
    std::vector<PageStyle> result;
    std::set<std::string> seen;
    while (!used.empty()) {
        const std::string name = used.extract(used.begin()).value();
        if (name.empty() || !seen.insert(name).second) continue;
        result.push_back(style_named(styles, name));
        used.insert(follow_of(result.back()));
    }
    return result;
}

SectionStyles first_section_styles(const DocumentModel& document) {
    const auto styles = page_styles(document);
    const std::string name = first_page_style_name(document);
    const PageStyle first = style_named(styles, name);
    const std::string follow = follow_of(first);
    if (follow.empty() || follow == name) return {first, first};
    return {first, style_named(styles, follow)};
}

}  // namespace foliant::hosts::office
