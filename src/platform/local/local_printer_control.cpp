#include "platform/local/local_printer_control.h"

#include "automation/error.h"
#include "automation/text.h"

namespace foliant::platform::local {

using automation::equal_ignoring_case;

std::uint32_t LocalPrinterControl::platform_identifier() {
    return 2;
}

std::string LocalPrinterControl::profile_entry(const std::string& section, const std::string& key) {
    if (!equal_ignoring_case(section, "PrinterPorts") || key.empty() || !printers_.has(key)) return "";
    return "winspool,Ne00:,15,45";
}

void LocalPrinterControl::write_profile_entry(const std::string& section, const std::string& key,
                                              const std::string& text) {
    if (!equal_ignoring_case(section, "windows") || !equal_ignoring_case(key, "Device")) return;
    try {
        store_.set(Printers::chosen_key, "Device", StoredValue::of_text(text));
    } catch (const automation::Error& error) {
        // A profile that cannot be written keeps what it says, and its caller is not told.
        if (on_trouble_) on_trouble_(error.description());
    }
}

void LocalPrinterControl::announce_profile_change(const std::string&) {}

PrinterHandle LocalPrinterControl::open_printer(const std::string&) {
    return 0;
}
std::optional<PrinterInfo> LocalPrinterControl::printer_info(PrinterHandle) {
    return std::nullopt;
}
bool LocalPrinterControl::set_printer_info(PrinterHandle, const PrinterInfo&) {
    return false;
}
void LocalPrinterControl::close_printer(PrinterHandle) {}

}  // namespace foliant::platform::local
