#include "hosts/acrobat/splice/plain_document.h"

#include <iterator>
#include <unordered_set>
#include <utility>

#include "hosts/acrobat/glance/page_count.h"

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// The object that a reference leads to, which is met for the first time.
Value new_dictionary(glance::PlainFile& file, const Value& reference,
                     std::unordered_set<std::int64_t>& seen) {
    require(reference.kind == Kind::reference && seen.insert(reference.number).second);
    Value dictionary = file.resolved(reference);
    require(dictionary.kind == Kind::dictionary);
    return dictionary;
}

}  // namespace

/// A node of the page tree whose children are being gone through.
struct PlainDocument::Level {
    glance::Items kids;
    PlainPage inherited;  ///< only what pages below have from here
};

PlainDocument::PlainDocument(FileBytes bytes)
    : bytes_(std::move(bytes)), file_(bytes_.text), page_count_(glance::page_count(file_)) {}

int PlainDocument::version() const {
    const std::string_view text = bytes_.text.substr(5, 4);  // behind "%PDF-"
    require(text.size() == 4 && is_digit(text[0]) && text[1] == '.' && is_digit(text[2]) &&
            !is_digit(text[3]));
    return (text[0] - '0') * 10 + (text[2] - '0');
}

PlainDocument::Level PlainDocument::enter(const Value& node, const PlainPage& above) {
    Level level{glance::Items(file_.resolved(entry(node, "/Kids"))), {}};
    for (std::size_t i = 0; i < std::size(inherited_keys); ++i) {
        const Value own = entry(node, inherited_keys[i]);
        level.inherited.inherited[i] = own.kind == Kind::null ? above.inherited[i] : own;
    }
    return level;
}

const std::vector<PlainPage>& PlainDocument::pages() {
    if (!pages_.empty()) return pages_;
    std::vector<PlainPage> pages;
    std::unordered_set<std::int64_t> seen;
    std::vector<Level> levels;
    levels.push_back(enter(new_dictionary(file_, entry(catalogue(), "/Pages"), seen), PlainPage()));
    while (!levels.empty()) {
        Value kid;
        if (!levels.back().kids.next(kid)) {
            levels.pop_back();
            continue;
        }
        PlainPage page = levels.back().inherited;
        page.reference = kid;
        page.dictionary = new_dictionary(file_, kid, seen);
        const std::string_view type = entry(page.dictionary, "/Type").text;
        if (type == "/Pages") {
            levels.push_back(enter(page.dictionary, page));
            continue;
        }
        require(type == "/Page" && entry(page.dictionary, "/Kids").kind == Kind::null);
        pages.push_back(page);
    }
    require(pages.size() == static_cast<std::size_t>(page_count_));
    pages_ = std::move(pages);
    return pages_;
}

std::vector<PlainBookmark> PlainDocument::bookmarks() {
    struct Place {
        Value item;
        std::ptrdiff_t parent;
    };
    std::vector<PlainBookmark> bookmarks;
    const Value outlines = file_.resolved(entry(catalogue(), "/Outlines"));
    if (outlines.kind == Kind::null) return bookmarks;
    std::unordered_set<std::int64_t> seen;
    std::vector<Place> waiting{{entry(outlines, "/First"), -1}};
    while (!waiting.empty()) {
        const Place place = waiting.back();
        waiting.pop_back();
        if (place.item.kind == Kind::null) continue;
        PlainBookmark bookmark{.reference = place.item, .dictionary = {}, .parent = place.parent};
        bookmark.dictionary = new_dictionary(file_, place.item, seen);
        const Value count = file_.resolved(entry(bookmark.dictionary, "/Count"));
        bookmark.is_open = count.kind == Kind::integer && count.number > 0;
        waiting.push_back({entry(bookmark.dictionary, "/Next"), place.parent});
        waiting.push_back({entry(bookmark.dictionary, "/First"), std::ssize(bookmarks)});
        bookmarks.push_back(bookmark);
    }
    return bookmarks;
}

}  // namespace foliant::hosts::acrobat::splice
