#include "hosts/office/excel/page_style.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyAttribute.hpp>
#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

Reference<css::container::XNameContainer> page_styles(const WorkbookModel& workbook) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(workbook, UNO_QUERY_THROW);
    return {supplier->getStyleFamilies()->getByName(to_uno("PageStyles")), UNO_QUERY_THROW};
}

Reference<css::beans::XPropertySet> properties_of(const WorkbookModel& workbook, std::int32_t sheet) {
    return {sheets_of(workbook)->getByIndex(sheet), UNO_QUERY_THROW};
}

rtl::OUString style_name(const WorkbookModel& workbook, std::int32_t sheet) {
    return uno_property<rtl::OUString>(properties_of(workbook, sheet), "PageStyle");
}

bool is_shared(const WorkbookModel& workbook, std::int32_t sheet) {
    const rtl::OUString name = style_name(workbook, sheet);
    const sal_Int32 count = sheets_of(workbook)->getCount();
    for (sal_Int32 other = 0; other < count; ++other)
        if (other != sheet && style_name(workbook, other) == name) return true;
    return false;
}

void copy_properties(const PageStyle& from, const PageStyle& to) {
    const auto properties = from->getPropertySetInfo()->getProperties();
    // Twice: what a header holds can be set only once there is one.
    for (int pass = 0; pass < 2; ++pass) {
        for (sal_Int32 i = 0; i < properties.getLength(); ++i) {
            const css::beans::Property& property = properties.getConstArray()[i];
            if ((property.Attributes & css::beans::PropertyAttribute::READONLY) != 0) continue;
            try {
                to->setPropertyValue(property.Name, from->getPropertyValue(property.Name));
            } catch (const css::uno::Exception&) {
                // One that this style cannot have, such as a name.
            }
        }
    }
}

}  // namespace

PageStyle page_style(const WorkbookModel& workbook, std::int32_t sheet) {
    return {page_styles(workbook)->getByName(style_name(workbook, sheet)), UNO_QUERY_THROW};
}

PageStyle own_page_style(const WorkbookModel& workbook, std::int32_t sheet) {
    PageStyle shared = page_style(workbook, sheet);
    if (!is_shared(workbook, sheet)) return shared;
    const auto styles = page_styles(workbook);
    rtl::OUString name = to_uno("Pages of sheet " + std::to_string(sheet + 1));
    while (styles->hasByName(name))
        name = name + to_uno("'");
    const Reference<css::lang::XMultiServiceFactory> factory(workbook, UNO_QUERY_THROW);
    styles->insertByName(name,
                         css::uno::Any(factory->createInstance(to_uno("com.sun.star.style.PageStyle"))));
    PageStyle own(styles->getByName(name), UNO_QUERY_THROW);
    copy_properties(shared, own);
    set_uno_property(properties_of(workbook, sheet), "PageStyle", name);
    return own;
}

void lay_page(const PageStyle& page, bool landscape) {
    const auto width = uno_property<sal_Int32>(page, "Width");
    const auto height = uno_property<sal_Int32>(page, "Height");
    set_uno_property(page, "IsLandscape", landscape);
    set_uno_property(page, "Width", landscape ? std::max(width, height) : std::min(width, height));
    set_uno_property(page, "Height", landscape ? std::min(width, height) : std::max(width, height));
}

sal_Int32 shorter_side(const PageStyle& page) {
    return std::min(uno_property<sal_Int32>(page, "Width"), uno_property<sal_Int32>(page, "Height"));
}

}  // namespace foliant::hosts::office
