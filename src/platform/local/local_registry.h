#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/local/registry_store.h"
#include "platform/registry.h"

namespace foliant::platform::local {

/// The registry calls on the keyed store. Result codes are the system's: 6 for a key that is not open, 5 when
/// the settings file may not be read or written, 1009 when it is damaged, 1016 for other trouble with it. The
/// ANSI code page is UTF-8, so texts pass through as they are.
class LocalRegistry : public Registry {
  public:
    /// `store` outlives this. `on_trouble` is told once, in a sentence, why the store cannot be used, since a
    /// result code says little and callers pass over it; may be empty.
    LocalRegistry(RegistryStore& store, std::function<void(const std::string&)> on_trouble);

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
    std::string text_of(std::string_view ansi) const override { return std::string(ansi); }
    std::string ansi_of(std::string_view text) const override { return std::string(text); }

  private:
    std::string path_of(RegistryKey key, const std::string& below = {}) const;
    std::int32_t guarded(const std::function<std::int32_t()>& call);
    RegistryKey handle_for(std::string path);

    RegistryStore& store_;
    std::function<void(const std::string&)> on_trouble_;
    bool told_ = false;
    std::map<RegistryKey, std::string> open_;
    RegistryKey next_ = 1;
};

}  // namespace foliant::platform::local
