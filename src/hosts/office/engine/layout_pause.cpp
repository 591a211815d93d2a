#include "hosts/office/engine/layout_pause.h"

#include <com/sun/star/frame/XModel.hpp>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

LayoutPause::LayoutPause(const DocumentModel& document) : document_(document) {
    Reference<css::frame::XModel>(document_, UNO_QUERY_THROW)->lockControllers();
}

LayoutPause::~LayoutPause() {
    try {
        Reference<css::frame::XModel>(document_, UNO_QUERY_THROW)->unlockControllers();
    } catch (const css::uno::Exception&) {
        // The document is gone, and its layout with it.
    }
}

}  // namespace foliant::hosts::office
