#include "platform/local/registry_store.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/error.h"
#include "platform/local/registry_json.h"
#include "platform/local/settings_file.h"

namespace foliant::platform::local {

using automation::equal_ignoring_case;
using automation::Error;
using automation::RuntimeError;

namespace {

constexpr std::array<std::array<std::string_view, 2>, 5> roots{{{"HKEY_LOCAL_MACHINE", "HKLM"},
                                                                {"HKEY_CURRENT_USER", "HKCU"},
                                                                {"HKEY_CLASSES_ROOT", "HKCR"},
                                                                {"HKEY_USERS", "HKU"},
                                                                {"HKEY_CURRENT_CONFIG", "HKCC"}}};

std::string_view without_separators(std::string_view path) {
    while (path.starts_with('\\'))
        path.remove_prefix(1);
    while (path.ends_with('\\'))
        path.remove_suffix(1);
    return path;
}

/// Whether `path` is `key` or a key below it.
bool is_in(const std::string& path, const std::string& key) {
    return equal_ignoring_case(path.substr(0, key.size()), key) &&
           (path.size() == key.size() || path[key.size()] == '\\');
}

/// The changes to a key that is about to get a value or to be made.
KeyChanges& changes_to(RegistryChanges& changes, const std::string& key) {
    KeyChanges& found = changes[key];
    if (std::exchange(found.removes_default, false)) {
        // The key comes back, its default values do not.
        if (const auto usual = default_registry().find(key); usual != default_registry().end()) {
            for (const auto& [name, value] : usual->second)
                found.values[name] = std::nullopt;
        }
    }
    return found;
}

}  // namespace

std::string whole_key_path(std::string_view key) {
    const std::string_view path = without_separators(key);
    const std::string_view first = path.substr(0, path.find('\\'));
    for (const auto& [name, short_name] : roots) {
        if (equal_ignoring_case(first, name) || equal_ignoring_case(first, short_name)) {
            return std::string(name) + std::string(path.substr(first.size()));
        }
    }
    throw Error(
        RuntimeError::invalid_procedure_call,
        "The key \"" + std::string(key) +
            "\" begins with no root. Keys begin with HKEY_CURRENT_USER (HKCU) or HKEY_LOCAL_MACHINE (HKLM).");
}

RegistryStore::RegistryStore(const std::filesystem::path& folder) : file_(folder / "registry.json") {}

std::vector<RegistryStore::Entry> RegistryStore::list(std::string_view under) {
    const std::string top = under.empty() ? std::string() : whole_key_path(under);
    std::vector<Entry> entries;
    for (const auto& [path, values] : current()) {
        if (!top.empty() && !is_in(path, top)) continue;
        const auto changed = changes_.find(path);
        for (const auto& [name, value] : values) {
            const bool is_default = changed == changes_.end() || !changed->second.values.contains(name);
            entries.push_back({path, name, value, is_default});
        }
    }
    return entries;
}

bool RegistryStore::has_key(std::string_view key) {
    const std::string wanted = whole_key_path(key);
    const StoredKeys& keys = current();
    return wanted.find('\\') == std::string::npos ||
           std::any_of(keys.begin(), keys.end(),
                       [&](const auto& entry) { return is_in(entry.first, wanted); });
}

std::optional<StoredValue> RegistryStore::get(std::string_view key, std::string_view name) {
    const StoredKeys& keys = current();
    const auto found = keys.find(whole_key_path(key));
    if (found == keys.end()) return std::nullopt;
    const auto value = found->second.find(std::string(name));
    return value == found->second.end() ? std::nullopt : std::optional(value->second);
}

std::optional<std::string> RegistryStore::text(std::string_view key, std::string_view name) {
    const auto value = get(key, name);
    return value ? value->text() : std::nullopt;
}

void RegistryStore::create_key(std::string_view key) {
    const std::string path = whole_key_path(key);
    if (has_key(path)) return;
    change([&](RegistryChanges& changes) { changes_to(changes, path); });
}

void RegistryStore::set(std::string_view key, std::string_view name, const StoredValue& value) {
    const std::string path = whole_key_path(key);
    change([&](RegistryChanges& changes) { changes_to(changes, path).values[std::string(name)] = value; });
}

bool RegistryStore::remove(std::string_view key, std::string_view name) {
    const std::string path = whole_key_path(key);
    const std::string value(name);
    if (!get(path, value)) return false;
    const bool has_default = built_in(path, value).has_value();
    change([&](RegistryChanges& changes) {
        auto& values = changes_to(changes, path).values;
        if (has_default) {
            values[value] = std::nullopt;
        } else {
            values.erase(value);
        }
    });
    return true;
}

std::optional<StoredValue> RegistryStore::built_in(std::string_view key, std::string_view name) {
    const auto usual = default_registry().find(whole_key_path(key));
    if (usual == default_registry().end()) return std::nullopt;
    const auto value = usual->second.find(std::string(name));
    return value == usual->second.end() ? std::nullopt : std::optional(value->second);
}

bool RegistryStore::reset(std::string_view key, std::string_view name) {
    const std::string path = whole_key_path(key);
    current();
    const auto changed = changes_.find(path);
    const bool is_changed = changed != changes_.end() && (changed->second.removes_default ||
                                                          changed->second.values.contains(std::string(name)));
    if (!is_changed) return false;
    change([&](RegistryChanges& changes) {
        changes_to(changes, path).values.erase(std::string(name));
        if (changes[path].values.empty()) changes.erase(path);
    });
    return true;
}

bool RegistryStore::remove_key(std::string_view key) {
    const std::string top = whole_key_path(key);
    if (!has_key(top)) return false;
    change([&](RegistryChanges& changes) {
        std::erase_if(changes, [&](const auto& entry) { return is_in(entry.first, top); });
        for (const auto& [path, values] : default_registry()) {
            if (is_in(path, top)) changes[path].removes_default = true;
        }
    });
    return true;
}

bool RegistryStore::Identity::operator==(const Identity& other) const noexcept {
    return device == other.device && file == other.file && length == other.length &&
           changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
}

const StoredKeys& RegistryStore::current() {
    const auto status = settings_file_status(file_);
    const auto seen =
        status ? std::optional(Identity{status->st_dev, status->st_ino, status->st_size, status->st_mtim})
               : std::nullopt;
    if (!loaded_ || seen != known_) {
        load();
        known_ = seen;
    }
    return merged_;
}

void RegistryStore::load() {
    loaded_ = false;
    const auto text = read_settings_file(file_);
    changes_.clear();
    if (text) {
        try {
            for (auto& [path, key] : registry_from_json(*text))
                changes_[whole_key_path(path)] = std::move(key);
        } catch (const std::exception& problem) {
            refuse_file(problem.what());
        }
    }
    merge();
    loaded_ = true;
}

void RegistryStore::merge() {
    merged_ = default_registry();
    for (const auto& [path, key] : changes_) {
        if (key.removes_default) {
            merged_.erase(path);
            continue;
        }
        StoredValues& values = merged_[path];
        for (const auto& [name, value] : key.values) {
            values.erase(name);
            if (value) values[name] = *value;
        }
    }
}

void RegistryStore::change(const std::function<void(RegistryChanges&)>& edit) {
    const SettingsLock lock(file_);
    load();
    edit(changes_);
    loaded_ = false;  // until the file says the same
    save();
}

void RegistryStore::save() {
    try {
        replace_settings_file(file_, registry_to_json(changes_));
    } catch (const Error&) {
        throw;
    } catch (const std::exception& problem) {
        throw Error(RuntimeError::invalid_procedure_call,
                    "The settings file " + file_.string() + " was left as it is: " + problem.what());
    }
}

void RegistryStore::refuse_file(const std::string& problem) const {
    throw Error(RuntimeError::path_file_access,
                "The settings file " + file_.string() + " cannot be understood: " + problem +
                    ". Mend it, or move it away to start again from the usual settings.");
}

}  // namespace foliant::platform::local
