#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "automation/text.h"
#include "platform/registry.h"

namespace foliant::platform::local {

/// Orders names as the registry tells them apart: without regard to case.
struct IgnoringCase {
    bool operator()(std::string_view a, std::string_view b) const {
        return automation::compare_ignoring_case(a, b) < 0;
    }
};

/// One value: its type, and its bytes exactly as they were given (texts with the NUL that ends them).
struct StoredValue {
    std::uint32_t type = reg_string;
    std::string data;

    bool operator==(const StoredValue&) const = default;

    static StoredValue of_text(std::string_view text) { return {reg_string, std::string(text) + '\0'}; }
    /// The text of a value of type 1 or 2, without its NUL; nothing for other types.
    std::optional<std::string> text() const;
};

/// Values by name; "" names a key's unnamed value.
using StoredValues = std::map<std::string, StoredValue, IgnoringCase>;

/// Keys by path, such as "HKEY_CURRENT_USER\\Software\\Adobe".
using StoredKeys = std::map<std::string, StoredValues, IgnoringCase>;

/// What the user's file says about one key of the defaults and of the user's own.
struct KeyChanges {
    bool removes_default = false;  ///< Nothing of the default key is left.
    /// No value: that default is removed.
    std::map<std::string, std::optional<StoredValue>, IgnoringCase> values;
};

/// What the user's file says: changes to the defaults, by key.
using RegistryChanges = std::map<std::string, KeyChanges, IgnoringCase>;

/// What a machine has that nobody has changed: an Acrobat 6.0 with its PDF printer.
const StoredKeys& default_registry();

}  // namespace foliant::platform::local
