#include "hosts/acrobat/splice/page_tree.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace foliant::hosts::acrobat::splice {

namespace {

constexpr std::size_t most_children = 32;  // of a node

/// "Kids" and what else a node says of those below it.
struct Node {
    std::int32_t number;
    std::size_t pages;
};

std::string node_text(std::span<const Node> children, std::int32_t parent) {
    std::string text = "<< /Type /Pages";
    if (parent != 0) text += " /Parent " + reference(parent);
    text += " /Kids [";
    std::size_t pages = 0;
    for (const Node& child : children) {
        text += " " + reference(child.number);
        pages += child.pages;
    }
    return text + " ] /Count " + std::to_string(pages) + " >>";
}

}  // namespace

std::int32_t PageTree::parent_of(std::size_t page) const {
    return nodes_[page / most_children];
}

bool PageTree::contains(std::int32_t number) const {
    return std::binary_search(pages_.begin(), pages_.end(), number);
}

void PageTree::add_page(Body& body) {
    if (pages_.size() % most_children == 0) nodes_.push_back(body.new_number());
    pages_.push_back(body.new_number());
}

void PageTree::shrink_to(std::size_t size) {
    pages_.resize(size);
    nodes_.resize((size + most_children - 1) / most_children);
}

void PageTree::write(Body& tail) const {
    std::vector<Node> nodes;
    nodes.reserve(pages_.size());
    for (const std::int32_t page : pages_)
        nodes.push_back({page, 1});
    std::vector<std::int32_t> numbers = nodes_;
    while (!numbers.empty()) {
        // Those of a level hang from nodes whose numbers are known before them, up to the root.
        const bool is_last = numbers.size() <= most_children;
        std::vector<std::int32_t> above;
        std::vector<Node> parents;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (!is_last && i % most_children == 0) above.push_back(tail.new_number());
            const auto children = std::span<const Node>(nodes).subspan(
                i * most_children, std::min(most_children, nodes.size() - i * most_children));
            tail.put_object(numbers[i], node_text(children, is_last ? root_ : above.back()));
            std::size_t pages = 0;
            for (const Node& child : children)
                pages += child.pages;
            parents.push_back({numbers[i], pages});
        }
        nodes = std::move(parents);
        numbers = std::move(above);
    }
    tail.put_object(root_, node_text(nodes, 0));
}

}  // namespace foliant::hosts::acrobat::splice
