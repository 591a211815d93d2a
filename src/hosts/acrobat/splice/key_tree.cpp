#include "hosts/acrobat/splice/key_tree.h"

#include <algorithm>
#include <span>
#include <unordered_set>
#include <utility>

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

constexpr std::size_t most_children = 64;  // items, or nodes, of a node

/// A node that is not written yet: one that has others above it says between which keys its items are.
struct Node {
    std::string entries;
    std::string first;
    std::string last;
};

/// Has `make` put together as many as go into a node, until all have been.
template <typename Children, typename Make>
std::vector<Node> in_nodes(Children& children, Make make) {
    std::vector<Node> nodes;
    for (std::size_t i = 0; i < children.size(); i += most_children)
        nodes.push_back(make(std::span(children).subspan(i, std::min(most_children, children.size() - i))));
    return nodes;
}

Node make_leaf(std::string_view list, std::span<const TreeItem> items) {
    Node leaf{std::string(list) + " [", items.front().key, items.back().key};
    for (const TreeItem& item : items)
        leaf.entries += " " + item.key + " " + item.value;
    leaf.entries += " ]";
    return leaf;
}

Node make_parent(Body& body, std::span<const Node> children) {
    Node parent{"/Kids [", children.front().first, children.back().last};
    for (const Node& child : children) {
        const std::int32_t number = body.new_number();
        body.put_object(number,
                        "<< /Limits [ " + child.first + " " + child.last + " ] " + child.entries + " >>");
        parent.entries += " " + reference(number);
    }
    parent.entries += " ]";
    return parent;
}

}  // namespace

void read_tree(glance::PlainFile& file, const Value& root, std::string_view list, const TellItem& tell) {
    std::unordered_set<std::int64_t> seen;
    std::vector<Value> waiting{root};
    while (!waiting.empty()) {
        const Value place = waiting.back();
        waiting.pop_back();
        if (place.kind == Kind::null) continue;
        require(place.kind != Kind::reference || seen.insert(place.number).second);
        const Value node = file.resolved(place);
        if (const Value items = file.resolved(entry(node, list)); items.kind != Kind::null) {
            glance::Items all(items);
            Value value;
            for (Value key; all.next(key);) {
                require(all.next(value));
                tell(key, value);
            }
        }
        const Value kids = file.resolved(entry(node, "/Kids"));
        if (kids.kind == Kind::null) continue;
        const auto before = static_cast<std::ptrdiff_t>(waiting.size());
        glance::Items all(kids);
        for (Value kid; all.next(kid);)
            waiting.push_back(kid);
        std::reverse(waiting.begin() + before, waiting.end());
    }
}

std::int32_t write_tree(Body& body, std::string_view list, const std::vector<TreeItem>& items) {
    const std::int32_t root = body.new_number();
    std::vector<Node> nodes = in_nodes(items, [&](auto some) { return make_leaf(list, some); });
    while (nodes.size() > 1)
        nodes = in_nodes(nodes, [&](auto some) { return make_parent(body, some); });
    body.put_object(root,
                    "<< " + (nodes.empty() ? std::string(list) + " []" : nodes.front().entries) + " >>");
    return root;
}

}  // namespace foliant::hosts::acrobat::splice
