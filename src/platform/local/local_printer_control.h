#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/local/printers.h"
#include "platform/local/registry_store.h"
#include "platform/printer_control.h"

namespace foliant::platform::local {

/// The printers as the Windows NT family has them: the default one is an entry of the user's profile, which
/// is kept in the settings store and so outlives the command.
class LocalPrinterControl : public PrinterControl {
  public:
    /// Both outlive this. `on_trouble` is told, in a sentence, why a choice could not be kept, since a
    /// profile has no way to say so; may be empty.
    LocalPrinterControl(Printers& printers, RegistryStore& store,
                        std::function<void(const std::string&)> on_trouble = {})
        : printers_(printers), store_(store), on_trouble_(std::move(on_trouble)) {}

    std::uint32_t platform_identifier() override;
    std::string default_printer() override { return printers_.default_name(); }
    std::string profile_entry(const std::string& section, const std::string& key) override;
    void write_profile_entry(const std::string& section, const std::string& key,
                             const std::string& text) override;
    void announce_profile_change(const std::string& section) override;
    // Only the other family has printers that can be opened.
    PrinterHandle open_printer(const std::string& name) override;
    std::optional<PrinterInfo> printer_info(PrinterHandle printer) override;
    bool set_printer_info(PrinterHandle printer, const PrinterInfo& info) override;
    void close_printer(PrinterHandle printer) override;

  private:
    Printers& printers_;
    RegistryStore& store_;
    std::function<void(const std::string&)> on_trouble_;
};

}  // namespace foliant::platform::local
