#pragma once

#include "platform/printer_control.h"

namespace foliant::platform::win32 {

class WindowsPrinters : public PrinterControl {
  public:
    std::uint32_t platform_identifier() override;
    std::string default_printer() override;
    std::string profile_entry(const std::string& section, const std::string& key) override;
    void write_profile_entry(const std::string& section, const std::string& key,
                             const std::string& text) override;
    void announce_profile_change(const std::string& section) override;
    PrinterHandle open_printer(const std::string& name) override;
    std::optional<PrinterInfo> printer_info(PrinterHandle printer) override;
    bool set_printer_info(PrinterHandle printer, const PrinterInfo& info) override;
    void close_printer(PrinterHandle printer) override;
};

}  // namespace foliant::platform::win32
