#include "hosts/office/powerpoint/presentation.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <utility>

#include "hosts/office/engine/translated.h"
#include "hosts/office/powerpoint/slide_scaling.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

Reference<css::container::XIndexAccess> slides(const LoadedDocument& document) {
    const Reference<css::drawing::XDrawPagesSupplier> supplier(document.component, UNO_QUERY_THROW);
    return {supplier->getDrawPages(), UNO_QUERY_THROW};
}

std::pair<sal_Int32, sal_Int32> slide_size(const LoadedDocument& document) {
    const Reference<css::beans::XPropertySet> first(slides(document)->getByIndex(0), UNO_QUERY_THROW);
    return {uno_property<sal_Int32>(first, "Width"), uno_property<sal_Int32>(first, "Height")};
}

}  // namespace

bool Presentation::is_horizontal() const {
    return translated(loaded(), "measure the slides of", [&] {
        const auto [width, height] = slide_size(loaded());
        return width >= height;
    });
}

void Presentation::set_horizontal(bool horizontal) {
    if (is_horizontal() == horizontal) return;
    translated(loaded(), "turn the slides of", [&] {
        const auto [width, height] = slide_size(loaded());
        if (width != height) resize_slides(loaded().component, height, width);
    });
}

int Presentation::slide_count() const {
    return translated(loaded(), "count the slides of", [&] { return int{slides(loaded())->getCount()}; });
}

}  // namespace foliant::hosts::office
