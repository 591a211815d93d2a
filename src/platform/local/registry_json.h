#pragma once

#include <string>

#include "platform/local/registry_value.h"

namespace foliant::platform::local {

// The form of the settings file: an object of keys, each an object of values.
//
//     {
//       "HKEY_CURRENT_USER\\Software\\Example": {
//         "": "the unnamed value",
//         "Folder": {"type": "REG_EXPAND_SZ", "text": "%HOME%"},
//         "Count": {"type": "REG_DWORD", "number": 5},
//         "List": {"type": "REG_MULTI_SZ", "texts": ["a", "b"]},
//         "Bytes": {"type": "REG_BINARY", "hex": "00ff"},
//         "AnotherDefault": null
//       },
//       "HKEY_LOCAL_MACHINE\\SOFTWARE\\SomeDefault": null
//     }
//
// A plain text is of type REG_SZ. Null removes a default: a value, or a whole key. Any type may also be a
// number, and any value may come as "hex": that is how bytes are kept that do not have their type's usual
// form, such as a text without its NUL.

/// Reads the file's content. Throws std::runtime_error with line and column, or with the place in the
/// structure, for what is not of this form.
RegistryChanges registry_from_json(const std::string& text);

/// The content of a file that says so; every type and byte comes back. Names have to be UTF-8 (else
/// std::runtime_error).
std::string registry_to_json(const RegistryChanges& changes);

}  // namespace foliant::platform::local
