#include "windows/package/registry_tree.h"

#include <algorithm>
#include <array>
#include <cwctype>
#include <iterator>

#include "platform/win32/text.h"

namespace foliant::tests::package {
namespace {

constexpr DWORD longest_name = 256;
constexpr DWORD longest_data = 4096;

std::wstring lower(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(), [](wchar_t c) { return std::towlower(c); });
    return text;
}

/// Texts as they are; of everything else only that it is there, and how long.
std::wstring data_text(DWORD type, const wchar_t* data, DWORD size) {
    if (type == REG_SZ || type == REG_EXPAND_SZ) return {data, wcsnlen(data, size / sizeof(wchar_t))};
    return L"type " + std::to_wstring(type) + L" size " + std::to_wstring(size);
}

void add_values(HKEY key, const std::wstring& path, RegistryTree& tree) {
    for (DWORD i = 0;; ++i) {
        std::array<wchar_t, longest_name> name{};
        std::array<wchar_t, longest_data> data{};
        DWORD name_size = longest_name;
        DWORD data_size = sizeof data;
        DWORD type = 0;
        const LSTATUS status = RegEnumValueW(key, i, name.data(), &name_size, nullptr, &type,
                                             reinterpret_cast<BYTE*>(data.data()), &data_size);
        if (status == ERROR_NO_MORE_ITEMS) return;
        tree.insert(path + L" [" + name.data() + L"] = " + data_text(type, data.data(), data_size));
    }
}

void add_key(HKEY parent, const std::wstring& name, const std::wstring& path, RegistryTree& tree) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    if (!path.empty()) tree.insert(path);
    add_values(key, path, tree);
    std::array<wchar_t, longest_name> subkey{};
    for (DWORD i = 0; RegEnumKeyW(key, i, subkey.data(), longest_name) == ERROR_SUCCESS; ++i)
        add_key(key, subkey.data(), path + (path.empty() ? L"" : L"\\") + lower(subkey.data()), tree);
    RegCloseKey(key);
}

}  // namespace

RegistryTree tree_below(HKEY root, const std::wstring& key) {
    RegistryTree tree;
    add_key(root, key, L"", tree);
    return tree;
}

RegistryTree added(const RegistryTree& before, const RegistryTree& after) {
    RegistryTree difference;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                        std::inserter(difference, difference.end()));
    return difference;
}

std::string text_of(const RegistryTree& tree) {
    std::string text;
    for (const std::wstring& line : tree)
        text += platform::win32::to_utf8(line) + "\n";
    return text;
}

}  // namespace foliant::tests::package
