#include "platform/local/registry_value.h"

namespace foliant::platform::local {

std::optional<std::string> StoredValue::text() const {
    if (type != reg_string && type != reg_expandable_string) return std::nullopt;
    return data.substr(0, data.find('\0'));
}

const StoredKeys& default_registry() {
    static const StoredKeys keys{
        {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion",
         {{"", StoredValue::of_text("6.0")}}},
        {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName",
         {{"", StoredValue::of_text("Adobe PDF")}}},
    };
    return keys;
}

}  // namespace foliant::platform::local
