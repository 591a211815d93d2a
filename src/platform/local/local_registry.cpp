#include "platform/local/local_registry.h"

#include <utility>

#include "automation/error.h"

namespace foliant::platform::local {

using automation::RuntimeError;

namespace {

constexpr std::int32_t invalid_handle = 6;
constexpr std::int32_t damaged_store = 1009;
constexpr std::int32_t store_trouble = 1016;

std::int32_t code_of(const automation::Error& error) {
    if (error.is(RuntimeError::permission_denied)) return registry_access_denied;
    return error.is(RuntimeError::path_file_access) ? damaged_store : store_trouble;
}

}  // namespace

LocalRegistry::LocalRegistry(RegistryStore& store, std::function<void(const std::string&)> on_trouble)
    : store_(store), on_trouble_(std::move(on_trouble)) {}

std::string LocalRegistry::path_of(RegistryKey key, const std::string& below) const {
    std::string path;
    if (key == hkey_local_machine) {
        path = "HKEY_LOCAL_MACHINE";
    } else if (key == hkey_current_user) {
        path = "HKEY_CURRENT_USER";
    } else if (const auto found = open_.find(key); found != open_.end()) {
        path = found->second;
    }
    return path.empty() || below.empty() ? path : path + "\\" + below;
}

std::int32_t LocalRegistry::guarded(const std::function<std::int32_t()>& call) {
    try {
        return call();
    } catch (...) {
        const automation::Error error = automation::current_error();
        if (on_trouble_ && !std::exchange(told_, true)) on_trouble_(error.description());
        return code_of(error);
    }
}

RegistryKey LocalRegistry::handle_for(std::string path) {
    open_[next_] = std::move(path);
    return next_++;
}

std::int32_t LocalRegistry::open_key(RegistryKey key, const std::string& path, std::uint32_t,
                                     RegistryKey& opened) {
    const std::string whole = path_of(key, path);
    if (whole.empty()) return invalid_handle;
    return guarded([&] {
        if (!store_.has_key(whole)) return registry_not_found;
        opened = handle_for(whole);
        return registry_success;
    });
}

std::int32_t LocalRegistry::create_key(RegistryKey key, const std::string& path, std::uint32_t,
                                       RegistryKey& opened) {
    const std::string whole = path_of(key, path);
    if (whole.empty()) return invalid_handle;
    return guarded([&] {
        store_.create_key(whole);
        opened = handle_for(whole);
        return registry_success;
    });
}

std::int32_t LocalRegistry::query_size(RegistryKey key, const std::string& name, std::uint32_t& type,
                                       std::uint32_t& size) {
    const std::string path = path_of(key);
    if (path.empty()) return invalid_handle;
    return guarded([&] {
        const auto value = store_.get(path, name);
        if (!value) return registry_not_found;
        type = value->type;
        size = static_cast<std::uint32_t>(value->data.size());
        return registry_success;
    });
}

std::int32_t LocalRegistry::query_data(RegistryKey key, const std::string& name, std::string& data) {
    const std::string path = path_of(key);
    if (path.empty()) return invalid_handle;
    return guarded([&] {
        auto value = store_.get(path, name);
        if (!value) return registry_not_found;
        data = std::move(value->data);
        return registry_success;
    });
}

std::int32_t LocalRegistry::set_value(RegistryKey key, const std::string& name, std::uint32_t type,
                                      std::string_view data) {
    const std::string path = path_of(key);
    if (path.empty()) return invalid_handle;
    return guarded([&] {
        store_.set(path, name, {type, std::string(data)});
        return registry_success;
    });
}

std::int32_t LocalRegistry::close_key(RegistryKey key) {
    return open_.erase(key) > 0 ? registry_success : invalid_handle;
}

}  // namespace foliant::platform::local
