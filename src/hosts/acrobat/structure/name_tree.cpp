#include "hosts/acrobat/structure/name_tree.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace foliant::hosts::acrobat::structure {

namespace {

constexpr std::size_t leaf_size = 64;  // entries, or children, of a node

/// Tells the key and value items of every leaf of a tree.
void walk(QPDFObjectHandle root, const std::string& key,
          const std::function<void(QPDFObjectHandle, QPDFObjectHandle)>& tell) {
    std::set<QPDFObjGen> seen;
    std::vector<QPDFObjectHandle> waiting{root};
    while (!waiting.empty()) {
        QPDFObjectHandle node = waiting.back();
        waiting.pop_back();
        if (!node.isDictionary()) continue;
        if (node.isIndirect() && !seen.insert(node.getObjGen()).second) continue;
        QPDFObjectHandle entries = node.getKey(key);
        for (int i = 0; entries.isArray() && i + 1 < entries.getArrayNItems(); i += 2)
            tell(entries.getArrayItem(i), entries.getArrayItem(i + 1));
        QPDFObjectHandle kids = node.getKey("/Kids");
        for (int i = kids.isArray() ? kids.getArrayNItems() : 0; i > 0; --i)
            waiting.push_back(kids.getArrayItem(i - 1));
    }
}

struct Node {
    QPDFObjectHandle object;
    QPDFObjectHandle first;
    QPDFObjectHandle last;
};

Node make_leaf(QPDF& pdf, const std::string& key, const std::vector<QPDFObjectHandle>& items) {
    QPDFObjectHandle leaf = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    leaf.replaceKey(key, QPDFObjectHandle::newArray(items));
    return {leaf, items.front(), items[items.size() - 2]};
}

void set_limits(const Node& node) {
    QPDFObjectHandle object = node.object;
    object.replaceKey("/Limits",
                      QPDFObjectHandle::newArray(std::vector<QPDFObjectHandle>{node.first, node.last}));
}

Node make_parent(QPDF& pdf, const std::vector<Node>& children) {
    std::vector<QPDFObjectHandle> kids;
    for (const Node& child : children) {
        set_limits(child);
        kids.push_back(child.object);
    }
    QPDFObjectHandle parent = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    parent.replaceKey("/Kids", QPDFObjectHandle::newArray(kids));
    return {parent, children.front().first, children.back().last};
}

/// A tree over leaves, which are there in their order.
QPDFObjectHandle make_tree(QPDF& pdf, std::vector<Node> nodes) {
    while (nodes.size() > 1) {
        std::vector<Node> parents;
        for (std::size_t i = 0; i < nodes.size(); i += leaf_size) {
            const auto end = std::min(nodes.size(), i + leaf_size);
            parents.push_back(make_parent(pdf, {nodes.begin() + static_cast<std::ptrdiff_t>(i),
                                                nodes.begin() + static_cast<std::ptrdiff_t>(end)}));
        }
        nodes = std::move(parents);
    }
    return nodes.front().object;
}

template <typename Entries, typename MakeKey>
QPDFObjectHandle write_tree(QPDF& pdf, const std::string& key, const Entries& entries, MakeKey make_key) {
    std::vector<Node> leaves;
    std::vector<QPDFObjectHandle> items;
    for (const auto& [name, value] : entries) {
        items.push_back(make_key(name));
        items.push_back(value);
        if (items.size() < 2 * leaf_size) continue;
        leaves.push_back(make_leaf(pdf, key, items));
        items.clear();
    }
    if (!items.empty()) leaves.push_back(make_leaf(pdf, key, items));
    if (!leaves.empty()) return make_tree(pdf, std::move(leaves));
    QPDFObjectHandle empty = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    empty.replaceKey(key, QPDFObjectHandle::newArray());
    return empty;
}

}  // namespace

Names read_name_tree(QPDFObjectHandle root) {
    Names names;
    walk(root, "/Names", [&](QPDFObjectHandle name, QPDFObjectHandle value) {
        if (name.isString()) names.emplace(name.getStringValue(), value);
    });
    return names;
}

Numbers read_number_tree(QPDFObjectHandle root) {
    Numbers numbers;
    walk(root, "/Nums", [&](QPDFObjectHandle number, QPDFObjectHandle value) {
        if (number.isInteger()) numbers.emplace(number.getIntValue(), value);
    });
    return numbers;
}

QPDFObjectHandle write_name_tree(QPDF& pdf, const Names& names) {
    return write_tree(pdf, "/Names", names, QPDFObjectHandle::newString);
}

QPDFObjectHandle write_number_tree(QPDF& pdf, const Numbers& numbers) {
    return write_tree(pdf, "/Nums", numbers, QPDFObjectHandle::newInteger);
}

}  // namespace foliant::hosts::acrobat::structure
