#include "hosts/acrobat/page.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/structure/page_box.h"
#include "hosts/settled_object.h"

namespace foliant::hosts::acrobat {

using automation::ObjectPtr;
using automation::RuntimeError;

namespace {

/// What clients multiply by ten and hold in 32 bits.
std::int32_t whole_points(double length) {
    constexpr double longest = std::numeric_limits<std::int32_t>::max() / 10.0;
    return static_cast<std::int32_t>(std::lround(std::min(length, longest)));
}

ObjectPtr make_size(const structure::PageBox& box) {
    auto point = std::make_shared<SettledObject>(application_name);
    point->settle("x", whole_points(box.width()));
    point->settle("y", whole_points(box.height()));
    return point;
}

}  // namespace

structure::Page page_of(Document& document, std::int32_t number) {
    return with_file_named(document, [&](structure::Pdf& pdf) {
        auto page = number < 0 ? std::nullopt : pdf.page(static_cast<std::size_t>(number));
        if (!page)
            throw acrobat_error(RuntimeError::subscript_out_of_range,
                                document.path() + " has " + std::to_string(pdf.pages().size()) +
                                    " pages, and none of number " +
                                    std::to_string(static_cast<std::int64_t>(number) + 1) + ".");
        return *std::move(page);
    });
}

ObjectPtr make_page(Document& document, std::int32_t number) {
    const structure::PageBox box = page_box(page_of(document, number));
    document.tell_missing_pages();
    auto page = std::make_shared<SettledObject>(application_name);
    page->settle("GetSize", make_size(box));
    return page;
}

}  // namespace foliant::hosts::acrobat
