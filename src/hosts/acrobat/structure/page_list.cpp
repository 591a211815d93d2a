#include "hosts/acrobat/structure/page_list.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <utility>

#include "hosts/acrobat/structure/unreadable.h"

namespace foliant::hosts::acrobat::structure {

namespace {

/// A root with so few children is asked whether they agree with it.
constexpr int few_children = 64;

QPDFObjectHandle tree_root(QPDF& pdf) {
    QPDFObjectHandle root = pdf.getRoot().getKey("/Pages");
    if (!root.isDictionary()) throw Unreadable("it seems to be damaged (it has no pages)");
    return root;
}

/// A number of pages that a node claims; nothing when it claims none that could be one.
std::optional<std::int64_t> claim(QPDFObjectHandle node) {
    QPDFObjectHandle count = node.getKey("/Count");
    if (!count.isInteger()) return std::nullopt;
    const std::int64_t pages = count.getIntValue();
    return pages < 0 ? std::nullopt : std::optional(pages);
}

bool is_node(QPDFObjectHandle object) {
    return object.getKey("/Kids").isArray();
}

/// What the children of a root claim together; nothing when they do not.
std::optional<std::int64_t> claim_of_children(QPDFObjectHandle kids) {
    std::int64_t pages = 0;
    for (int i = 0; i < kids.getArrayNItems(); ++i) {
        QPDFObjectHandle kid = kids.getArrayItem(i);
        if (!kid.isDictionary()) return std::nullopt;
        const auto claimed = is_node(kid) ? claim(kid) : 1;
        if (!claimed) return std::nullopt;
        pages += *claimed;
    }
    return pages;
}

void inherit(QPDFObjectHandle& value, QPDFObjectHandle node, const std::string& name) {
    QPDFObjectHandle own = node.getKey(name);
    if (!own.isNull()) value = own;
}

std::shared_ptr<const Inherited> inherited_below(QPDFObjectHandle node,
                                                 const std::shared_ptr<const Inherited>& above) {
    if (!node.hasKey("/Resources") && !node.hasKey("/MediaBox") && !node.hasKey("/CropBox") &&
        !node.hasKey("/Rotate"))
        return above;
    auto below = std::make_shared<Inherited>(*above);
    inherit(below->resources, node, "/Resources");
    inherit(below->media_box, node, "/MediaBox");
    inherit(below->crop_box, node, "/CropBox");
    inherit(below->rotate, node, "/Rotate");
    return below;
}

/// The child as an object of its own, which what refers to a page needs.
QPDFObjectHandle indirect_kid(QPDF& pdf, QPDFObjectHandle kids, int index) {
    QPDFObjectHandle kid = kids.getArrayItem(index);
    if (!kid.isDictionary() || kid.isIndirect()) return kid;
    kid = pdf.makeIndirectObject(kid);
    kids.setArrayItem(index, kid);
    return kid;
}

constexpr std::size_t most_children = 32;  // of a node of a tree that is written

/// The pages that a node leads to.
struct Node {
    QPDFObjectHandle object;
    long long pages;
};

void own_inherited(Page& page) {
    for (const char* key : {"/Resources", "/MediaBox", "/CropBox", "/Rotate"}) {
        const QPDFObjectHandle value = page.value(key);
        if (!page.object.hasKey(key) && !QPDFObjectHandle(value).isNull()) page.object.replaceKey(key, value);
    }
    page.inherited = std::make_shared<const Inherited>();
}

/// Hangs nodes below another.
Node make_parent(QPDFObjectHandle object, std::span<Node> children) {
    std::vector<QPDFObjectHandle> kids;
    long long pages = 0;
    for (Node& child : children) {
        child.object.replaceKey("/Parent", object);
        kids.push_back(child.object);
        pages += child.pages;
    }
    object.replaceKey("/Type", QPDFObjectHandle::newName("/Pages"));
    object.replaceKey("/Kids", QPDFObjectHandle::newArray(kids));
    object.replaceKey("/Count", QPDFObjectHandle::newInteger(pages));
    return {object, pages};
}

}  // namespace

QPDFObjectHandle Page::value(const std::string& name) const {
    QPDFObjectHandle page = object;
    QPDFObjectHandle own = page.getKey(name);
    if (!own.isNull()) return own;
    QPDFObjectHandle from_above = name == "/Resources"  ? inherited->resources
                                  : name == "/MediaBox" ? inherited->media_box
                                  : name == "/CropBox"  ? inherited->crop_box
                                  : name == "/Rotate"   ? inherited->rotate
                                                        : QPDFObjectHandle();
    return from_above.isInitialized() ? from_above : QPDFObjectHandle::newNull();
}

std::optional<std::int32_t> claimed_page_count(QPDF& pdf) {
    QPDFObjectHandle root = tree_root(pdf);
    QPDFObjectHandle kids = QPDFObjectHandle(root).getKey("/Kids");
    const auto pages = claim(root);
    if (!pages || !kids.isArray()) return std::nullopt;
    QPDFObjectHandle objects = pdf.getTrailer().getKey("/Size");
    if (!objects.isInteger() || *pages >= objects.getIntValue()) return std::nullopt;
    const int children = kids.getArrayNItems();
    const bool agrees = children <= few_children ? claim_of_children(kids) == pages : *pages >= children;
    if (!agrees || *pages > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return static_cast<std::int32_t>(*pages);
}

PageWalk::PageWalk(QPDF& pdf) : pdf_(pdf) {
    QPDFObjectHandle root = tree_root(pdf);
    const auto nothing = std::make_shared<const Inherited>();
    if (is_node(root))
        enter(root, nothing);
    else
        only_page_ = Page{root, nothing};
}

void PageWalk::enter(QPDFObjectHandle node, const std::shared_ptr<const Inherited>& above) {
    if (node.isIndirect() && !nodes_.insert(node.getObjGen()).second) return;
    levels_.push_back({node.getKey("/Kids"), inherited_below(node, above)});
}

std::optional<Page> PageWalk::next() {
    if (only_page_) return std::exchange(only_page_, std::nullopt);
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (level.next >= level.kids.getArrayNItems()) {
            levels_.pop_back();
            continue;
        }
        QPDFObjectHandle kid = indirect_kid(pdf_, level.kids, level.next++);
        if (!kid.isDictionary()) {
            ++missing_;
            continue;
        }
        if (!is_node(kid)) return Page{kid, level.inherited};
        const std::shared_ptr<const Inherited> above = level.inherited;  // which goes when levels are added
        enter(kid, above);
    }
    return std::nullopt;
}

void write_page_tree(QPDF& pdf, PageList& pages) {
    std::vector<Node> nodes;
    for (Page& page : pages) {
        own_inherited(page);
        nodes.push_back({page.object, 1});
    }
    while (nodes.size() > most_children) {
        std::vector<Node> parents;
        for (std::size_t i = 0; i < nodes.size(); i += most_children) {
            const QPDFObjectHandle object = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
            const std::size_t children = std::min(most_children, nodes.size() - i);
            parents.push_back(make_parent(object, std::span(nodes).subspan(i, children)));
        }
        nodes = std::move(parents);
    }
    QPDFObjectHandle root = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    make_parent(root, nodes);
    pdf.getRoot().replaceKey("/Pages", root);
}

}  // namespace foliant::hosts::acrobat::structure
