#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace foliant::platform {

/// A key handle; the predefined roots have the values that Windows gives them.
using RegistryKey = std::uint32_t;
inline constexpr RegistryKey hkey_current_user = 0x80000001;
inline constexpr RegistryKey hkey_local_machine = 0x80000002;

/// Value types, by the system's numbers.
enum RegistryType : std::uint32_t {
    reg_none = 0,
    reg_string = 1,
    reg_expandable_string = 2,
    reg_binary = 3,
    reg_number = 4,
    reg_big_endian_number = 5,
    reg_link = 6,
    reg_multi_string = 7,
    reg_resource_list = 8,
    reg_full_resource_descriptor = 9,
    reg_resource_requirements_list = 10,
};

inline constexpr std::int32_t registry_success = 0;
inline constexpr std::int32_t registry_not_found = 2;
inline constexpr std::int32_t registry_access_denied = 5;

/// The registry, call for call. The callers' rules depend on single result codes, so every function returns
/// the system's own: 0 is success, 2 not found, 5 access denied. None of them raises on its own account. Data
/// are bytes in the ANSI code page, with their terminating NULs; names and paths are UTF-8 text.
class Registry {
  public:
    virtual ~Registry() = default;

    /// Opens `path` (separated by "\", no leading one, "" for the key itself) below `key`.
    virtual std::int32_t open_key(RegistryKey key, const std::string& path, std::uint32_t access,
                                  RegistryKey& opened) = 0;

    /// Makes `path` below `key` with every level that is missing, or opens it when it is there.
    virtual std::int32_t create_key(RegistryKey key, const std::string& path, std::uint32_t access,
                                    RegistryKey& opened) = 0;

    /// Asks for type and size in bytes of a value; "" is the key's unnamed value.
    virtual std::int32_t query_size(RegistryKey key, const std::string& name, std::uint32_t& type,
                                    std::uint32_t& size) = 0;

    /// Reads a value into `data`, which is as long as `query_size` said; on failure `data` stays as it is.
    virtual std::int32_t query_data(RegistryKey key, const std::string& name, std::string& data) = 0;

    virtual std::int32_t set_value(RegistryKey key, const std::string& name, std::uint32_t type,
                                   std::string_view data) = 0;

    virtual std::int32_t close_key(RegistryKey key) = 0;

    /// Converts between bytes of the ANSI code page and text; what has no counterpart becomes "?".
    virtual std::string text_of(std::string_view ansi) const = 0;
    virtual std::string ansi_of(std::string_view text) const = 0;
};

}  // namespace foliant::platform
