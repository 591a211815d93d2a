#include "hosts/acrobat/text_selection.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

#include "automation/error.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/owner_rights.h"
#include "hosts/acrobat/page.h"
#include "hosts/acrobat/rectangle.h"
#include "hosts/acrobat/structure/page_box.h"
#include "hosts/acrobat/text/words.h"
#include "hosts/settled_object.h"

namespace foliant::hosts::acrobat {

using automation::ObjectPtr;
using automation::Value;

namespace {

/// The rectangle in the page's own coordinates. Raises 13 for what is none.
text::Rectangle rectangle_on(const structure::PageBox& page, const Value& value) {
    const auto* object = value.if_holds<ObjectPtr>();
    const auto* rectangle =
        object != nullptr ? dynamic_cast<const AcrobatRectangle*>(object->get()) : nullptr;
    if (rectangle == nullptr) throw automation::Error(automation::RuntimeError::type_mismatch);
    text::Rectangle moved = rectangle->value();
    moved.left += page.left;
    moved.right += page.left;
    moved.bottom += page.bottom;
    moved.top += page.bottom;
    return moved;
}

}  // namespace

ObjectPtr select_text(Document& document, std::int32_t page, const Value& rectangle) {
    require_right(document, structure::Right::take_text,
                  "may not be copied from, so its text is not written");
    const text::Rectangle chosen = rectangle_on(page_box(page_of(document, page)), rectangle);
    text::TextReader& pages = document.text().pages();
    const std::int64_t all = std::max(pages.page_count(), page + 1);
    document.show_progress("Reading", static_cast<int>(page * std::int64_t{100} / all));
    text::Words words;
    with_file_named(document, [&](structure::Pdf&) { words = text::words(*pages.page(page), &chosen); });
    auto selection = std::make_shared<SettledObject>(application_name);
    selection->settle("GetNumText", static_cast<std::int32_t>(words.ends.size()));
    selection->settle_texts("GetText", {std::move(words.letters), std::move(words.ends)});
    return selection;
}

}  // namespace foliant::hosts::acrobat
