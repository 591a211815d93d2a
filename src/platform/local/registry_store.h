#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

#include "platform/local/registry_value.h"

namespace foliant::platform::local {

/// The keyed store that stands for the registry: defaults that are compiled in, and the user's file
/// `registry.json`, which holds only what differs from them.
///
/// Key paths begin with a root's name ("HKEY_LOCAL_MACHINE", or "HKLM" for short) and are separated by "\".
/// Case does not matter in keys and value names; the spelling of whoever wrote first is kept. A key exists
/// when it was made, holds a value, or is above one that does.
///
/// The file is read when something is first asked for and again whenever it has changed; asking creates
/// nothing. A change is made under a lock, on what the file says at that moment, and replaces the file in one
/// step, so two processes lose none of each other's values and no reader sees half a file.
///
/// All functions raise an automation error that names the file: 75 when it is not of the expected form (it is
/// then never overwritten), 70 when it may not be read or written, 61 when the disk is full, 57 for other
/// trouble; and 5 for a path that begins with no root.
class RegistryStore {
  public:
    /// One value as it counts now.
    struct Entry {
        std::string key;
        std::string name;
        StoredValue value;
        bool is_default = false;  ///< It comes from what is compiled in.
    };

    explicit RegistryStore(const std::filesystem::path& folder);

    /// The user's file; it need not exist.
    const std::filesystem::path& file() const noexcept { return file_; }

    /// All values in `under` and the keys below it, sorted; "" lists everything.
    std::vector<Entry> list(std::string_view under = {});
    bool has_key(std::string_view key);
    std::optional<StoredValue> get(std::string_view key, std::string_view name);
    /// The text of a value of type 1 or 2; nothing when there is none.
    std::optional<std::string> text(std::string_view key, std::string_view name);

    /// Makes a key with every level that is missing; changes nothing when it exists.
    void create_key(std::string_view key);
    void set(std::string_view key, std::string_view name, const StoredValue& value);
    /// Removes a value, a default one too. False when there is none.
    bool remove(std::string_view key, std::string_view name);
    /// Takes back what the user's file says about a value, so that what is compiled in counts again. False
    /// when the file says nothing about it.
    bool reset(std::string_view key, std::string_view name);
    /// The value that is compiled in, whatever the user's file says.
    static std::optional<StoredValue> built_in(std::string_view key, std::string_view name);
    /// Removes a key with all that is in it and below it. False when there is none.
    bool remove_key(std::string_view key);

  private:
    /// Tells one content of the file from the next.
    struct Identity {
        dev_t device{};
        ino_t file{};
        off_t length{};
        timespec changed{};

        bool operator==(const Identity& other) const noexcept;
    };

    const StoredKeys& current();
    void load();
    void merge();
    void change(const std::function<void(RegistryChanges&)>& edit);
    void save();
    [[noreturn]] void refuse_file(const std::string& problem) const;

    std::filesystem::path file_;
    std::optional<Identity> known_;  ///< Of the content in memory; nothing when there is no file.
    bool loaded_ = false;
    RegistryChanges changes_;
    StoredKeys merged_;
};

/// A key path with its root's whole name and no separators at its ends. Raises 5 when it begins with no root.
std::string whole_key_path(std::string_view key);

}  // namespace foliant::platform::local
