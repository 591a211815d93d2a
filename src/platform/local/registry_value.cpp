#include "platform/local/registry_value.h"

#include "registered/keys.h"

namespace foliant::platform::local {

std::optional<std::string> StoredValue::text() const {
    if (type != reg_string && type != reg_expandable_string) return std::nullopt;
    return data.substr(0, data.find('\0'));
}

const StoredKeys& default_registry() {
    static const StoredKeys keys{
        {registered::key_of_computer(registered::acrobat_version_key), {{"", StoredValue::of_text("6.0")}}},
        {registered::key_of_computer(registered::pdf_printer_key),
         {{"", StoredValue::of_text(std::string(registered::pdf_printer_of_6_0))}}},
    };
    return keys;
}

}  // namespace foliant::platform::local
