#pragma once

#include <set>
#include <string>
#include <windows.h>

namespace foliant::tests::package {

/// What is below a registry key, one line for each key and each value: `clsid\{...} [ThreadingModel] =
/// Apartment`. Keys are in lower case, as their case means nothing.
using RegistryTree = std::set<std::wstring>;

RegistryTree tree_below(HKEY root, const std::wstring& key);

/// What `after` has and `before` has not, one line each.
RegistryTree added(const RegistryTree& before, const RegistryTree& after);

/// The lines as one text, for messages and comparisons.
std::string text_of(const RegistryTree& tree);

}  // namespace foliant::tests::package
