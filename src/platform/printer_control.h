#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace foliant::platform {

/// A printer opened for administration; 0 is none.
using PrinterHandle = std::intptr_t;

/// What the Windows 95 family keeps of a printer at level 5.
struct PrinterInfo {
    std::string name;
    std::string port;
    std::uint32_t attributes = 0;
    std::uint32_t device_not_selected_timeout = 0;  ///< milliseconds
    std::uint32_t transmission_retry_timeout = 0;   ///< milliseconds
};

/// What the system lets programs say about its printers. Nothing here raises: calls answer whether they
/// succeeded.
class PrinterControl {
  public:
    virtual ~PrinterControl() = default;

    /// The family of the system: 1 is that of Windows 95, 2 that of Windows NT.
    virtual std::uint32_t platform_identifier() = 0;

    /// The device name of the default printer, as this process sees it now: a change by `write_profile_entry`
    /// or `set_printer_info` shows at once. Empty when there is none.
    virtual std::string default_printer() = 0;

    // The Windows NT family: entries of the user's profile.

    /// An entry of a section of the user's profile, cut to 1023 bytes; empty when there is none.
    virtual std::string profile_entry(const std::string& section, const std::string& key) = 0;
    virtual void write_profile_entry(const std::string& section, const std::string& key,
                                     const std::string& text) = 0;
    /// Tells every top-level window that a section of the profile has changed, and returns when all have
    /// handled it.
    virtual void announce_profile_change(const std::string& section) = 0;

    // The Windows 95 family: the printers themselves.

    /// Opens a printer with all rights; 0 when it cannot be opened.
    virtual PrinterHandle open_printer(const std::string& name) = 0;
    /// What is kept of an open printer; nothing when it cannot be read.
    virtual std::optional<PrinterInfo> printer_info(PrinterHandle printer) = 0;
    virtual bool set_printer_info(PrinterHandle printer, const PrinterInfo& info) = 0;
    virtual void close_printer(PrinterHandle printer) = 0;
};

}  // namespace foliant::platform
