#include "hosts/acrobat/outline/links.h"

#include <algorithm>
#include <optional>

namespace foliant::hosts::acrobat::outline {
namespace {

using text::Rectangle;

std::optional<Rectangle> rectangle_of(QPDFObjectHandle annotation) {
    if (!annotation.isDictionary() || !annotation.getKey("/Subtype").isNameAndEquals("/Link"))
        return std::nullopt;
    QPDFObjectHandle rectangle = annotation.getKey("/Rect");
    if (!rectangle.isRectangle()) return std::nullopt;
    const auto corners = rectangle.getArrayAsRectangle();
    return Rectangle{std::min(corners.llx, corners.urx), std::min(corners.lly, corners.ury),
                     std::max(corners.llx, corners.urx), std::max(corners.lly, corners.ury)};
}

std::vector<Rectangle> links_on(QPDFObjectHandle annotations) {
    std::vector<Rectangle> found;
    for (int i = 0; annotations.isArray() && i < annotations.getArrayNItems(); ++i)
        if (const auto rectangle = rectangle_of(annotations.getArrayItem(i))) found.push_back(*rectangle);
    return found;
}

bool has_middle_of(const Rectangle& link, const Rectangle& place) {
    const double x = (place.left + place.right) / 2;
    const double y = (place.bottom + place.top) / 2;
    return x >= link.left && x <= link.right && y >= link.bottom && y <= link.top;
}

QPDFObjectHandle number(double value) {
    constexpr int decimals = 2;
    return QPDFObjectHandle::newReal(value, decimals);
}

QPDFObjectHandle annotation(const std::string& uri, const Rectangle& place) {
    QPDFObjectHandle action = QPDFObjectHandle::newDictionary();
    action.replaceKey("/Type", QPDFObjectHandle::newName("/Action"));
    action.replaceKey("/S", QPDFObjectHandle::newName("/URI"));
    action.replaceKey("/URI", QPDFObjectHandle::newString(uri));
    QPDFObjectHandle link = QPDFObjectHandle::newDictionary();
    link.replaceKey("/Type", QPDFObjectHandle::newName("/Annot"));
    link.replaceKey("/Subtype", QPDFObjectHandle::newName("/Link"));
    link.replaceKey("/Rect", QPDFObjectHandle::newArray({number(place.left), number(place.bottom),
                                                         number(place.right), number(place.top)}));
    link.replaceKey("/Border", QPDFObjectHandle::parse("[0 0 0]"));
    link.replaceKey("/F", QPDFObjectHandle::newInteger(4));  // it is printed, though nothing is seen of it
    link.replaceKey("/A", action);
    return link;
}

/// The page's list of annotations, that may be added to: one that is an object of its own might be another
/// page's, too.
QPDFObjectHandle own_annotations(QPDFObjectHandle page) {
    QPDFObjectHandle old = page.getKey("/Annots");
    QPDFObjectHandle own = old.isArray() ? QPDFObjectHandle(old).shallowCopy() : QPDFObjectHandle::newArray();
    page.replaceKey("/Annots", own);
    return own;
}

}  // namespace

std::size_t add_links(QPDF& pdf, QPDFObjectHandle page, const std::vector<Link>& links) {
    const std::vector<Rectangle> old = links_on(page.getKey("/Annots"));
    std::vector<QPDFObjectHandle> added;
    std::size_t count = 0;
    for (const Link& link : links) {
        const std::size_t before = added.size();
        for (const Rectangle& place : link.places) {
            const bool is_link_already = std::any_of(
                old.begin(), old.end(), [&](const Rectangle& there) { return has_middle_of(there, place); });
            if (!is_link_already) added.push_back(annotation(link.uri, place));
        }
        if (added.size() > before) ++count;
    }
    if (added.empty()) return 0;
    QPDFObjectHandle annotations = own_annotations(page);
    for (QPDFObjectHandle& link : added) {
        link.replaceKey("/P", page);
        annotations.appendItem(pdf.makeIndirectObject(link));
    }
    return count;
}

}  // namespace foliant::hosts::acrobat::outline
