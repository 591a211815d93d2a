#include "platform/win32/windows_shell.h"

#include <array>
#include <shlobj.h>

#include "platform/win32/text.h"

namespace foliant::platform::win32 {
namespace {

constexpr std::size_t path_buffer_size = 512;

/// Something of this module to find it by.
const char here = 0;

std::wstring module_path(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return path.substr(0, length);
        path.resize(path.size() * 2);
    }
}

}  // namespace

std::optional<std::string> WindowsShell::special_folder(std::intptr_t owner, std::int32_t folder) {
    LPITEMIDLIST item = nullptr;
    if (SHGetSpecialFolderLocation(reinterpret_cast<HWND>(owner), folder, &item) != 0) return std::nullopt;
    std::array<char, path_buffer_size> buffer{};
    SHGetPathFromIDListA(item, buffer.data());
    CoTaskMemFree(item);
    return from_ansi({buffer.data(), buffer.size()});
}

std::string WindowsShell::library_folder() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&here), &module);
    const std::string path = to_utf8(module_path(module));
    const std::size_t last = path.rfind('\\');
    if (last == std::string::npos) return path;
    const bool is_root = last > 0 && path[last - 1] == ':';
    return path.substr(0, is_root ? last + 1 : last);
}

}  // namespace foliant::platform::win32
