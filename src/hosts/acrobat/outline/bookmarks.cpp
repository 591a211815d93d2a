#include "hosts/acrobat/outline/bookmarks.h"

#include <algorithm>
#include <qpdf/QPDFObjGen.hh>
#include <set>

namespace foliant::hosts::acrobat::outline {
namespace {

constexpr std::size_t most_bookmarks = 1'000'000;  // of those that are no objects of their own, too

/// Says of each bookmark whether it is met for the first time, and ends walks that do not.
class Visited {
  public:
    bool is_new(const QPDFObjectHandle& bookmark) {
        if (++steps_ > most_bookmarks) return false;
        const QPDFObjGen identity = bookmark.getObjGen();
        return !identity.isIndirect() || seen_.insert(identity).second;
    }

  private:
    std::set<QPDFObjGen> seen_;
    std::size_t steps_ = 0;
};

QPDFObjectHandle existing_root(QPDF& pdf) {
    return pdf.getRoot().getKey("/Outlines");
}

/// The dictionary above all bookmarks, made if there is none.
QPDFObjectHandle root_of(QPDF& pdf) {
    QPDFObjectHandle root = existing_root(pdf);
    if (root.isDictionary() && root.isIndirect()) return root;
    if (!root.isDictionary()) root = QPDFObjectHandle::parse("<< /Type /Outlines >>");
    root = pdf.makeIndirectObject(root);
    pdf.getRoot().replaceKey("/Outlines", root);
    return root;
}

/// The bookmarks of the highest level, as far as they hang together.
std::vector<QPDFObjectHandle> highest_level(QPDFObjectHandle root) {
    std::vector<QPDFObjectHandle> found;
    Visited visited;
    for (QPDFObjectHandle next = root.getKey("/First"); next.isDictionary() && visited.is_new(next);
         next = next.getKey("/Next"))
        found.push_back(next);
    return found;
}

/// The last one, without a walk where the document is in order.
QPDFObjectHandle last_of(QPDFObjectHandle root) {
    const QPDFObjectHandle last = root.getKey("/Last");
    const bool is_in_order = last.isIndirect() && QPDFObjectHandle(last).isDictionary() &&
                             QPDFObjectHandle(last).getKey("/Next").isNull() &&
                             QPDFObjectHandle(last).getKey("/Parent").getObjGen() == root.getObjGen();
    if (is_in_order) return last;
    const std::vector<QPDFObjectHandle> all = highest_level(root);
    return all.empty() ? QPDFObjectHandle::newNull() : all.back();
}

/// One more bookmark can be seen.
void count_one_more(QPDFObjectHandle root) {
    QPDFObjectHandle count = root.getKey("/Count");
    const bool is_known = count.isInteger() && count.getIntValue() >= 0;
    const long long before =
        is_known ? count.getIntValue() : static_cast<long long>(highest_level(root).size());
    root.replaceKey("/Count", QPDFObjectHandle::newInteger(before + 1));
}

QPDFObjectHandle coordinate(const std::optional<double>& value) {
    constexpr int decimals = 2;
    return value ? QPDFObjectHandle::newReal(*value, decimals) : QPDFObjectHandle::newNull();
}

QPDFObjectHandle destination(const Target& target) {
    QPDFObjectHandle array = QPDFObjectHandle::newArray();
    array.appendItem(target.page);
    array.appendItem(QPDFObjectHandle::newName("/XYZ"));
    array.appendItem(coordinate(target.left));
    array.appendItem(coordinate(target.top));
    array.appendItem(QPDFObjectHandle::newNull());  // as large as it is shown
    return array;
}

}  // namespace

QPDFObjectHandle add_bookmark(QPDF& pdf, const std::string& title, const Target& target) {
    QPDFObjectHandle root = root_of(pdf);
    QPDFObjectHandle last = last_of(root);
    count_one_more(root);
    QPDFObjectHandle bookmark = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    set_title(bookmark, title);
    bookmark.replaceKey("/Parent", root);
    bookmark.replaceKey("/Dest", destination(target));
    if (last.isDictionary()) {
        bookmark.replaceKey("/Prev", last);
        last.replaceKey("/Next", bookmark);
    } else {
        root.replaceKey("/First", bookmark);
    }
    root.replaceKey("/Last", bookmark);
    return bookmark;
}

std::optional<QPDFObjectHandle> find_bookmark(QPDF& pdf, const std::string& title) {
    QPDFObjectHandle root = existing_root(pdf);
    if (!root.isDictionary()) return std::nullopt;
    Visited visited;
    std::vector<QPDFObjectHandle> waiting{root.getKey("/First")};
    while (!waiting.empty()) {
        QPDFObjectHandle bookmark = waiting.back();
        waiting.pop_back();
        if (!bookmark.isDictionary() || !visited.is_new(bookmark)) continue;
        if (title_of(bookmark) == title) return bookmark;
        waiting.push_back(bookmark.getKey("/Next"));
        waiting.push_back(bookmark.getKey("/First"));  // before what follows it
    }
    return std::nullopt;
}

std::string title_of(QPDFObjectHandle bookmark) {
    QPDFObjectHandle title = bookmark.getKey("/Title");
    return title.isString() ? title.getUTF8Value() : std::string();
}

void set_title(QPDFObjectHandle bookmark, const std::string& title) {
    bookmark.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(title));
}

}  // namespace foliant::hosts::acrobat::outline
