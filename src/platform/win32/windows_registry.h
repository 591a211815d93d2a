#pragma once

#include "platform/registry.h"

namespace foliant::platform::win32 {

/// The system's registry through its ANSI calls: names, paths and data travel in the ANSI code page.
class WindowsRegistry : public Registry {
  public:
    std::int32_t open_key(RegistryKey key, const std::string& path, std::uint32_t access,
                          RegistryKey& opened) override;
    std::int32_t create_key(RegistryKey key, const std::string& path, std::uint32_t access,
                            RegistryKey& opened) override;
    std::int32_t query_size(RegistryKey key, const std::string& name, std::uint32_t& type,
                            std::uint32_t& size) override;
    std::int32_t query_data(RegistryKey key, const std::string& name, std::string& data) override;
    std::int32_t set_value(RegistryKey key, const std::string& name, std::uint32_t type,
                           std::string_view data) override;
    std::int32_t close_key(RegistryKey key) override;
    std::string text_of(std::string_view ansi) const override;
    std::string ansi_of(std::string_view text) const override;
};

}  // namespace foliant::platform::win32
