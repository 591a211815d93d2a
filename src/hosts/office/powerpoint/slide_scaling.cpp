#include "hosts/office/powerpoint/slide_scaling.h"

#include <algorithm>
#include <array>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/drawing/HomogenMatrix3.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XMasterPagesSupplier.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/table/XTable.hpp>
#include <com/sun/star/text/XText.hpp>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::beans::XPropertySet;
using css::container::XEnumerationAccess;
using css::container::XIndexAccess;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

using Properties = Reference<XPropertySet>;

/// What turns places on the former slide into places on the new one.
struct Fit {
    double scale;
    double left;
    double top;
};

/// A property as a T, when the object has it.
template <class T>
bool read(const Properties& object, const char* name, T& value) {
    const rtl::OUString property = to_uno(name);
    return object.is() && object->getPropertySetInfo()->hasPropertyByName(property) &&
           (object->getPropertyValue(property) >>= value);
}

template <class T>
void scale_property(const Properties& object, const char* name, double scale) {
    T value{};
    if (read(object, name, value)) set_uno_property(object, name, static_cast<T>(value * scale));
}

void scale_characters(const Properties& portion, double scale) {
    for (const char* height : {"CharHeight", "CharHeightAsian", "CharHeightComplex"})
        scale_property<float>(portion, height, scale);
}

void scale_paragraph(const Properties& paragraph, double scale) {
    for (const char* distance :
         {"ParaLeftMargin", "ParaRightMargin", "ParaTopMargin", "ParaBottomMargin", "ParaFirstLineIndent"})
        scale_property<sal_Int32>(paragraph, distance, scale);
}

void scale_text(const Any& holder, double scale) {
    const Reference<XEnumerationAccess> text(holder, UNO_QUERY);
    if (!text.is()) return;
    const auto paragraphs = text->createEnumeration();
    while (paragraphs.is() && paragraphs->hasMoreElements()) {
        const Any paragraph = paragraphs->nextElement();
        const Reference<XEnumerationAccess> portions(paragraph, UNO_QUERY);
        if (!portions.is()) continue;
        const auto each = portions->createEnumeration();
        bool any = false;
        while (each.is() && each->hasMoreElements()) {
            scale_characters(Properties(each->nextElement(), UNO_QUERY), scale);
            any = true;
        }
        if (!any) scale_characters(Properties(paragraph, UNO_QUERY), scale);
        scale_paragraph(Properties(paragraph, UNO_QUERY), scale);
    }
}

/// The rows and columns of a table keep the share of it that they have.
void scale_table(const Properties& shape, double scale) {
    Reference<css::table::XTable> table;
    if (!read(shape, "Model", table) || !table.is()) return;
    const auto columns = table->getColumnCount();
    const auto rows = table->getRowCount();
    const Reference<css::table::XCellRange> cells(table, UNO_QUERY_THROW);
    for (sal_Int32 row = 0; row < rows; ++row)
        for (sal_Int32 column = 0; column < columns; ++column)
            scale_text(Any(cells->getCellByPosition(column, row)), scale);
    const Reference<css::table::XColumnRowRange> lines(table, UNO_QUERY_THROW);
    const Reference<XIndexAccess> all_rows(lines->getRows(), UNO_QUERY_THROW);
    for (sal_Int32 row = 0; row < rows; ++row)
        scale_property<sal_Int32>(Properties(all_rows->getByIndex(row), UNO_QUERY), "Height", scale);
    const Reference<XIndexAccess> all_columns(lines->getColumns(), UNO_QUERY_THROW);
    for (sal_Int32 column = 0; column < columns; ++column)
        scale_property<sal_Int32>(Properties(all_columns->getByIndex(column), UNO_QUERY), "Width", scale);
}

/// Moves and scales the shape itself; rotation and shear stay.
void scale_outline(const Properties& shape, const Fit& fit) {
    css::drawing::HomogenMatrix3 place;
    if (!read(shape, "Transformation", place)) return;
    for (auto* line : {&place.Line1, &place.Line2}) {
        line->Column1 *= fit.scale;
        line->Column2 *= fit.scale;
        line->Column3 *= fit.scale;
    }
    place.Line1.Column3 += fit.left;
    place.Line2.Column3 += fit.top;
    set_uno_property(shape, "Transformation", place);
}

void scale_shape(const Any& shape, const Fit& fit) {
    const Properties properties(shape, UNO_QUERY);
    if (const Reference<XIndexAccess> group(shape, UNO_QUERY); group.is()) {
        for (sal_Int32 i = 0; i < group->getCount(); ++i)
            scale_shape(group->getByIndex(i), fit);
        return;
    }
    try {
        // The text first: a shape that grows with its text would grow for the larger one.
        scale_text(shape, fit.scale);
        scale_table(properties, fit.scale);
        for (const char* distance :
             {"TextLeftDistance", "TextRightDistance", "TextUpperDistance", "TextLowerDistance", "LineWidth"})
            scale_property<sal_Int32>(properties, distance, fit.scale);
        scale_outline(properties, fit);
    } catch (const css::uno::Exception&) {
        // A shape that cannot be changed, such as the connection of two others, follows these.
    }
}

void scale_page(const Any& page, const Fit& fit) {
    const Reference<XIndexAccess> shapes(page, UNO_QUERY_THROW);
    for (sal_Int32 i = 0; i < shapes->getCount(); ++i)
        scale_shape(shapes->getByIndex(i), fit);
}

}  // namespace

void resize_slides(const Reference<css::lang::XComponent>& presentation, sal_Int32 width, sal_Int32 height) {
    const Reference<css::drawing::XDrawPagesSupplier> slides(presentation, UNO_QUERY_THROW);
    const Reference<css::drawing::XMasterPagesSupplier> masters(presentation, UNO_QUERY_THROW);
    const Reference<XIndexAccess> all_slides(slides->getDrawPages(), UNO_QUERY_THROW);
    const Reference<XIndexAccess> all_masters(masters->getMasterPages(), UNO_QUERY_THROW);
    const Properties first(all_slides->getByIndex(0), UNO_QUERY_THROW);
    const auto former_width = uno_property<sal_Int32>(first, "Width");
    const auto former_height = uno_property<sal_Int32>(first, "Height");
    // One slide's size is that of all of them.
    set_uno_property(first, "Width", width);
    set_uno_property(first, "Height", height);
    const double scale =
        std::min(static_cast<double>(width) / former_width, static_cast<double>(height) / former_height);
    const Fit fit{.scale = scale,
                  .left = (width - former_width * scale) / 2,
                  .top = (height - former_height * scale) / 2};
    for (const auto& pages : {all_masters, all_slides})
        for (sal_Int32 i = 0; i < pages->getCount(); ++i)
            scale_page(pages->getByIndex(i), fit);
}

}  // namespace foliant::hosts::office
