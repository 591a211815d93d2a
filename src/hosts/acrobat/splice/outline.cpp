#include "hosts/acrobat/splice/outline.h"

#include <iterator>

#include "hosts/acrobat/splice/strings.h"

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

/// A bookmark that leads elsewhere than to a page of its file, or to a name, has to be looked at.
void require_plain_place(glance::PlainFile& file, const Value& bookmark, const PageTree& pages,
                         Copier& copier) {
    const Value place = file.resolved(entry(bookmark, "/Dest"));
    if (place.kind == Kind::null || place.kind == Kind::name || is_string(place)) return;
    Value page;
    require(glance::Items(place).next(page) && page.kind == Kind::reference);
    require(pages.contains(copier.number_of(page)));
}

}  // namespace

/// How a bookmark hangs between others: their numbers, 0 for none.
struct Outline::Links {
    std::int32_t previous = 0;
    std::int32_t next = 0;
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::size_t visible_below = 0;  ///< when it is open
    std::ptrdiff_t last_child = -1;
};

void Outline::append(PlainDocument& source, Copier& copier, Body& body, const PageTree& pages,
                     Places places) {
    const std::vector<PlainBookmark> coming = source.bookmarks();
    const std::ptrdiff_t first = std::ssize(bookmarks_);
    for (const PlainBookmark& bookmark : coming) {
        bookmarks_.push_back({.number = body.new_number(),
                              .parent = bookmark.parent < 0 ? -1 : first + bookmark.parent,
                              .is_open = bookmark.is_open});
        copier.stand_in(bookmark.reference, bookmarks_.back().number);
    }
    for (std::size_t i = 0; i < coming.size(); ++i) {
        if (places == Places::pages) require_plain_place(source.file(), coming[i].dictionary, pages, copier);
        copier.copy_entries(coming[i].dictionary,
                            {"/Parent", "/Prev", "/Next", "/First", "/Last", "/Count", "/SE"},
                            bookmarks_[static_cast<std::size_t>(first) + i].entries);
    }
}

std::vector<Outline::Links> Outline::links() const {
    std::vector<Links> links(bookmarks_.size() + 1);  // the last one is that of what the outermost hang from
    const auto place_of_parent = [&](std::size_t i) {
        return bookmarks_[i].parent < 0 ? bookmarks_.size() : static_cast<std::size_t>(bookmarks_[i].parent);
    };
    for (std::size_t i = 0; i < bookmarks_.size(); ++i) {
        Links& parent = links[place_of_parent(i)];
        if (parent.last_child < 0) {
            parent.first = bookmarks_[i].number;
        } else {
            const auto before = static_cast<std::size_t>(parent.last_child);
            links[before].next = bookmarks_[i].number;
            links[i].previous = bookmarks_[before].number;
        }
        parent.last = bookmarks_[i].number;
        parent.last_child = static_cast<std::ptrdiff_t>(i);
    }
    for (std::size_t i = bookmarks_.size(); i > 0; --i)
        links[place_of_parent(i - 1)].visible_below +=
            1 + (bookmarks_[i - 1].is_open ? links[i - 1].visible_below : 0);
    return links;
}

std::int32_t Outline::write(Body& tail) const {
    if (bookmarks_.empty()) return 0;
    const std::int32_t outlines = tail.new_number();
    const std::vector<Links> all = links();
    const auto append = [](std::string& text, const char* key, std::int32_t number) {
        if (number != 0) text.append(key).append(reference(number)).append(" ");
    };
    for (std::size_t i = 0; i < bookmarks_.size(); ++i) {
        const Bookmark& bookmark = bookmarks_[i];
        const Links& links = all[i];
        std::string& text = tail.begin_object(bookmark.number);
        text += "<< " + bookmark.entries;
        append(text, "/Parent ",
               bookmark.parent < 0 ? outlines : bookmarks_[static_cast<std::size_t>(bookmark.parent)].number);
        append(text, "/Prev ", links.previous);
        append(text, "/Next ", links.next);
        append(text, "/First ", links.first);
        append(text, "/Last ", links.last);
        if (links.visible_below > 0)
            text += (bookmark.is_open ? "/Count " : "/Count -") + std::to_string(links.visible_below) + " ";
        text += ">>";
        tail.end_object();
    }
    std::string text = "<< /Type /Outlines ";
    append(text, "/First ", all.back().first);
    append(text, "/Last ", all.back().last);
    tail.put_object(outlines, text + "/Count " + std::to_string(all.back().visible_below) + " >>");
    return outlines;
}

}  // namespace foliant::hosts::acrobat::splice
