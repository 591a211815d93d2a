#include "hosts/acrobat/find_text.h"

#include <optional>

namespace foliant::hosts::acrobat {
namespace {

/// As whoever watches is told of it.
FoundText told(const text::Hit& hit) {
    text::Rectangle place = hit.places.front();
    for (const text::Rectangle& line : hit.places)
        place = around(place, line);
    return {.page = hit.page + 1,
            .left = place.left,
            .bottom = place.bottom,
            .right = place.right,
            .top = place.top,
            .context = hit.context};
}

}  // namespace

bool find_text(View& view, const text::Query& query, bool from_start) {
    Document& document = *view.document;
    text::Finder& finder = document.text().finder();
    return with_file_named(document, [&](structure::Pdf&) {
        const int pages = document.text().pages().page_count();
        const auto tell = [&](int page) { document.show_progress("Searching", page * 100 / pages); };
        const bool goes_on = view.found && !from_start;
        auto hit = finder.find(query, goes_on ? view.found->behind : text::Position(), tell);
        if (!hit) return false;
        view.found = hit;
        view.page = hit->page;
        while (hit && document.machine().found(told(*hit)))
            hit = finder.find(query, hit->behind, tell);
        return true;
    });
}

}  // namespace foliant::hosts::acrobat
