#include "platform/win32/windows_registry.h"

#include <windows.h>

#include "platform/win32/text.h"

namespace foliant::platform::win32 {
namespace {

/// Handles have 32 significant bits; the predefined roots are widened with their sign.
HKEY handle_of(RegistryKey key) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<std::int32_t>(key)));
}

RegistryKey key_of(HKEY handle) {
    return static_cast<RegistryKey>(reinterpret_cast<ULONG_PTR>(handle));
}

}  // namespace

std::int32_t WindowsRegistry::open_key(RegistryKey key, const std::string& path, std::uint32_t access,
                                       RegistryKey& opened) {
    HKEY handle = nullptr;
    const LSTATUS result = RegOpenKeyExA(handle_of(key), to_ansi(path).c_str(), 0, access, &handle);
    if (result == ERROR_SUCCESS) opened = key_of(handle);
    return result;
}

std::int32_t WindowsRegistry::create_key(RegistryKey key, const std::string& path, std::uint32_t access,
                                         RegistryKey& opened) {
    HKEY handle = nullptr;
    char no_class[] = "";
    const LSTATUS result = RegCreateKeyExA(handle_of(key), to_ansi(path).c_str(), 0, no_class,
                                           REG_OPTION_NON_VOLATILE, access, nullptr, &handle, nullptr);
    if (result == ERROR_SUCCESS) opened = key_of(handle);
    return result;
}

std::int32_t WindowsRegistry::query_size(RegistryKey key, const std::string& name, std::uint32_t& type,
                                         std::uint32_t& size) {
    DWORD found_type = 0;
    DWORD found_size = 0;
    const LSTATUS result =
        RegQueryValueExA(handle_of(key), to_ansi(name).c_str(), nullptr, &found_type, nullptr, &found_size);
    if (result == ERROR_SUCCESS) {
        type = found_type;
        size = found_size;
    }
    return result;
}

std::int32_t WindowsRegistry::query_data(RegistryKey key, const std::string& name, std::string& data) {
    std::string buffer(data.size(), '\0');
    auto size = static_cast<DWORD>(buffer.size());
    const LSTATUS result = RegQueryValueExA(handle_of(key), to_ansi(name).c_str(), nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(buffer.data()), &size);
    if (result == ERROR_SUCCESS) data = std::move(buffer);
    return result;
}

std::int32_t WindowsRegistry::set_value(RegistryKey key, const std::string& name, std::uint32_t type,
                                        std::string_view data) {
    return RegSetValueExA(handle_of(key), to_ansi(name).c_str(), 0, type,
                          reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size()));
}

std::int32_t WindowsRegistry::close_key(RegistryKey key) {
    return RegCloseKey(handle_of(key));
}

std::string WindowsRegistry::text_of(std::string_view ansi) const {
    return from_ansi(ansi);
}

std::string WindowsRegistry::ansi_of(std::string_view text) const {
    return to_ansi(text);
}

}  // namespace foliant::platform::win32
