#include "engines/default_printer.h"

#include <utility>

namespace foliant::engines {
namespace {

using platform::PrinterControl;
using platform::PrinterHandle;
using platform::PrinterInfo;

constexpr std::uint32_t windows_95_family = 1;
constexpr std::uint32_t default_printer_flag = 4;

/// What stands in an entry such as "winspool,Ne00:,15,45" before each of its first two commas.
struct PrinterPort {
    std::string driver;
    std::string port;
};

PrinterPort parse_printer_port(const std::string& entry) {
    const std::size_t first = entry.find(',');
    if (first == std::string::npos) return {};
    const std::size_t second = entry.find(',', first + 1);
    if (second == std::string::npos) return {entry.substr(0, first), ""};
    return {entry.substr(0, first), entry.substr(first + 1, second - first - 1)};
}

void set_by_profile(PrinterControl& printers, const std::string& strPrinter) {
    const PrinterPort found = parse_printer_port(printers.profile_entry("PrinterPorts", strPrinter));
    if (found.driver.empty() || found.port.empty()) return;
    printers.write_profile_entry("windows", "Device", strPrinter + "," + found.driver + "," + found.port);
    printers.announce_profile_change("windows");
}

void set_by_attributes(PrinterControl& printers, const std::string& strPrinter) {
    if (strPrinter.empty()) return;
    const PrinterHandle printer = printers.open_printer(strPrinter);
    if (printer == 0) return;
    // After a failure the printer stays open, as it always has.
    std::optional<PrinterInfo> info = printers.printer_info(printer);
    if (!info) return;
    info->attributes = default_printer_flag;
    if (printers.set_printer_info(printer, *info)) printers.close_printer(printer);
}

}  // namespace

void SetDefPrinter(const session::Session& session, const std::string& strPrinter) {
    PrinterControl& printers = session.outside().printers;
    if (printers.platform_identifier() == windows_95_family) {
        set_by_attributes(printers, strPrinter);
    } else {
        set_by_profile(printers, strPrinter);
    }
}

void PrinterSwitch::switch_to(const std::string& printer) {
    former_ = session_.outside().printers.default_printer();
    SetDefPrinter(session_, printer);
}

void PrinterSwitch::restore() {
    if (!former_) return;
    const std::string former = *std::exchange(former_, std::nullopt);
    SetDefPrinter(session_, former);
}

}  // namespace foliant::engines
