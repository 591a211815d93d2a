#include "hosts/acrobat/structure/bookmarks.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "hosts/acrobat/structure/catalogue_entry.h"
#include "hosts/acrobat/structure/destinations.h"

namespace foliant::hosts::acrobat::structure {

namespace {

constexpr std::size_t nobody = ~std::size_t{0};

struct Bookmark {
    QPDFObjectHandle original;
    std::size_t parent = nobody;
    bool is_kept = true;
    QPDFObjectHandle copy{};
    QPDFObjectHandle last_child{};  ///< so far; of the target
    long long visible_below = 0;    ///< how many are seen below it when it is open
};

bool is_open(QPDFObjectHandle item) {
    QPDFObjectHandle count = item.getKey("/Count");
    return count.isInteger() && count.getIntValue() > 0;
}

/// All bookmarks, each after the one above it and the one before it. What is met again is passed over.
std::vector<Bookmark> read_bookmarks(Pdf& pdf) {
    struct Place {
        QPDFObjectHandle item;
        std::size_t parent;
    };
    std::vector<Bookmark> bookmarks;
    std::set<QPDFObjGen> seen;
    std::vector<Place> waiting;
    QPDFObjectHandle outlines = pdf.qpdf().getRoot().getKey("/Outlines");
    if (outlines.isDictionary()) waiting.push_back({outlines.getKey("/First"), nobody});
    while (!waiting.empty()) {
        const auto [item, parent] = waiting.back();
        waiting.pop_back();
        QPDFObjectHandle bookmark = item;
        if (!bookmark.isDictionary() || !bookmark.isIndirect() || !seen.insert(bookmark.getObjGen()).second)
            continue;
        waiting.push_back({bookmark.getKey("/Next"), parent});
        waiting.push_back({bookmark.getKey("/First"), bookmarks.size()});
        bookmarks.push_back({bookmark, parent});
    }
    return bookmarks;
}

bool leads_to_inserted_page(QPDFObjectHandle item, const Insertion& insertion) {
    QPDFObjectHandle destination = item.getKey("/Dest");
    QPDFObjectHandle action = item.getKey("/A");
    if (destination.isNull() && action.isDictionary()) destination = action.getKey("/D");
    return leads_to_copied_page(destination, insertion.copier);
}

/// What of a bookmark is made anew; also where it leads, if that is a page which is not inserted.
std::vector<std::string> entries_not_copied(QPDFObjectHandle item, const Insertion& insertion) {
    std::vector<std::string> entries{"/Parent", "/Prev", "/Next", "/First", "/Last", "/Count", "/SE"};
    const QPDFObjectHandle destination = item.getKey("/Dest");
    if (QPDFObjectHandle(destination).isArray() && !leads_to_copied_page(destination, insertion.copier))
        entries.emplace_back("/Dest");
    return entries;
}

/// Keeps those that lead to inserted pages, and what they hang from.
void drop_others(std::vector<Bookmark>& bookmarks, const Insertion& insertion) {
    for (Bookmark& bookmark : bookmarks)
        bookmark.is_kept = leads_to_inserted_page(bookmark.original, insertion);
    for (std::size_t i = bookmarks.size(); i > 0; --i) {
        const Bookmark& bookmark = bookmarks[i - 1];
        if (bookmark.is_kept && bookmark.parent != nobody) bookmarks[bookmark.parent].is_kept = true;
    }
}

void hang(QPDFObjectHandle child, QPDFObjectHandle parent, QPDFObjectHandle& last_child) {
    child.replaceKey("/Parent", parent);
    if (last_child.isInitialized() && last_child.isDictionary()) {
        child.replaceKey("/Prev", last_child);
        last_child.replaceKey("/Next", child);
    } else {
        parent.replaceKey("/First", child);
    }
    parent.replaceKey("/Last", child);
    last_child = child;
}

void copy_all(std::vector<Bookmark>& bookmarks, QPDFObjectHandle outlines, const Insertion& insertion) {
    QPDFObjectHandle last = outlines.getKey("/Last");
    for (Bookmark& bookmark : bookmarks) {
        if (!bookmark.is_kept) continue;
        bookmark.copy = insertion.target.qpdf().makeIndirectObject(QPDFObjectHandle::newDictionary());
        insertion.copier.copy_entries(bookmark.original, bookmark.copy,
                                      entries_not_copied(bookmark.original, insertion));
        if (bookmark.parent == nobody) {
            hang(bookmark.copy, outlines, last);
        } else {
            Bookmark& parent = bookmarks[bookmark.parent];
            hang(bookmark.copy, parent.copy, parent.last_child);
        }
    }
}

/// Says how many bookmarks are seen below each, or would be if it were open. Returns how many are seen.
long long count_visible(std::vector<Bookmark>& bookmarks) {
    long long visible = 0;
    for (std::size_t i = bookmarks.size(); i > 0; --i) {
        Bookmark& bookmark = bookmarks[i - 1];
        if (!bookmark.is_kept) continue;
        const bool open = is_open(bookmark.original);
        const long long below = bookmark.visible_below;
        if (below > 0)
            bookmark.copy.replaceKey("/Count", QPDFObjectHandle::newInteger(open ? below : -below));
        long long& above = bookmark.parent == nobody ? visible : bookmarks[bookmark.parent].visible_below;
        above += 1 + (open ? below : 0);
    }
    return visible;
}

}  // namespace

void add_bookmarks(const Insertion& insertion) {
    std::vector<Bookmark> bookmarks = read_bookmarks(insertion.source);
    if (!insertion.is_whole()) drop_others(bookmarks, insertion);
    if (bookmarks.empty()) return;
    QPDF& pdf = insertion.target.qpdf();
    QPDFObjectHandle outlines = own_dictionary_in(pdf, pdf.getRoot(), "/Outlines");
    outlines.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
    copy_all(bookmarks, outlines, insertion);
    QPDFObjectHandle count = outlines.getKey("/Count");
    const long long before = count.isInteger() && count.getIntValue() > 0 ? count.getIntValue() : 0;
    outlines.replaceKey("/Count", QPDFObjectHandle::newInteger(before + count_visible(bookmarks)));
}

}  // namespace foliant::hosts::acrobat::structure
