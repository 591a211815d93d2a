#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/glance/plain_file.h"
#include "hosts/acrobat/splice/body.h"

/// Trees of a file whose leaves have keys in their order, with a value for each: names of places, labels of pages.
namespace foliant::hosts::acrobat::splice {

using TellItem = std::function<void(const glance::Value& key, const glance::Value& value)>;

/// Tells the items of every leaf, which lie under `list` ("/Names", "/Nums"); none for a root that is null. Throws Doubt
/// for what is no such tree.
void read_tree(glance::PlainFile& file, const glance::Value& root, std::string_view list,
               const TellItem& tell);

/// An item as the file is to have it.
struct TreeItem {
    std::string key;
    std::string value;
};

/// Writes a tree with these items, which are in their order. Returns the number of its root.
std::int32_t write_tree(Body& body, std::string_view list, const std::vector<TreeItem>& items);

}  // namespace foliant::hosts::acrobat::splice
