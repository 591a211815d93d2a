#include <algorithm>
#include <array>
#include <cstdio>

#include "automation/text.h"
#include "platform/stage/stage_ports.h"

namespace foliant::platform::stage {

using automation::to_lower;

namespace {

std::string hexadecimal(std::uint32_t number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%X", number);
    return text.data();
}

std::string visible(std::string_view data) {
    std::string text;
    for (const char c : data)
        text += c == '\0' ? "\\0" : std::string(1, c);
    return text;
}

}  // namespace

std::string StageRegistry::path_of(RegistryKey key) const {
    if (key == hkey_local_machine) return "HKEY_LOCAL_MACHINE";
    if (key == hkey_current_user) return "HKEY_CURRENT_USER";
    const auto found = open_.find(key);
    return found == open_.end() ? "(no key)" : found->second;
}

bool StageRegistry::exists(const std::string& path) const {
    const std::string wanted = to_lower(path);
    if (wanted == "hkey_local_machine" || wanted == "hkey_current_user") return true;
    return std::any_of(stage_.registry.begin(), stage_.registry.end(), [&](const auto& entry) {
        const std::string known = to_lower(entry.first);
        return known == wanted || known.starts_with(wanted + "\\");
    });
}

RegistryKey StageRegistry::handle_for(const std::string& path) {
    open_[next_] = path;
    return next_++;
}

std::int32_t StageRegistry::open_key(RegistryKey key, const std::string& path, std::uint32_t access,
                                     RegistryKey& opened) {
    const std::string whole = path.empty() ? path_of(key) : path_of(key) + "\\" + path;
    if (stage_.act_or_refuse("open key " + whole + " (access " + hexadecimal(access) + ")")) {
        return registry_access_denied;
    }
    if (!exists(whole)) {
        stage_.extend_last_line(" -> not found");
        return registry_not_found;
    }
    opened = handle_for(whole);
    return registry_success;
}

std::int32_t StageRegistry::create_key(RegistryKey key, const std::string& path, std::uint32_t access,
                                       RegistryKey& opened) {
    const std::string whole = path_of(key) + "\\" + path;
    if (stage_.act_or_refuse("create key " + whole + " (access " + hexadecimal(access) + ")")) {
        return registry_access_denied;
    }
    if (!exists(whole)) stage_.registry[whole];
    opened = handle_for(whole);
    return registry_success;
}

const Stage::RegistryValue* StageRegistry::find(RegistryKey key, const std::string& name) const {
    const std::string wanted = to_lower(path_of(key));
    for (const auto& [path, values] : stage_.registry) {
        if (to_lower(path) != wanted) continue;
        for (const auto& [value_name, value] : values) {
            if (to_lower(value_name) == to_lower(name)) return &value;
        }
    }
    return nullptr;
}

std::int32_t StageRegistry::query_size(RegistryKey key, const std::string& name, std::uint32_t& type,
                                       std::uint32_t& size) {
    if (stage_.act_or_refuse("read value \"" + name + "\" of " + path_of(key))) return registry_access_denied;
    if (const auto refusal = stage_.registry_refusals.find(name); refusal != stage_.registry_refusals.end()) {
        return refusal->second;
    }
    const auto* value = find(key, name);
    if (value == nullptr) {
        stage_.extend_last_line(" -> not found");
        return registry_not_found;
    }
    type = value->type;
    size = static_cast<std::uint32_t>(value->data.size());
    stage_.extend_last_line(" -> type " + std::to_string(type) + " " + visible(value->data));
    return registry_success;
}

std::int32_t StageRegistry::query_data(RegistryKey key, const std::string& name, std::string& data) {
    const auto* value = find(key, name);
    if (value == nullptr) return registry_not_found;
    data.assign(value->data, 0, data.size());
    return registry_success;
}

std::int32_t StageRegistry::set_value(RegistryKey key, const std::string& name, std::uint32_t type,
                                      std::string_view data) {
    if (stage_.act_or_refuse("write value \"" + name + "\" of " + path_of(key) + ": type " +
                             std::to_string(type) + " " + visible(data))) {
        return registry_access_denied;
    }
    stage_.registry[path_of(key)][name] = {type, std::string(data)};
    return registry_success;
}

std::int32_t StageRegistry::close_key(RegistryKey key) {
    if (stage_.act_or_refuse("close key " + path_of(key))) return registry_access_denied;
    return open_.erase(key) > 0 ? registry_success : 6;
}

}  // namespace foliant::platform::stage
