#include "platform/win32/windows_printers.h"

#include <array>
#include <vector>
#include <windows.h>
#include <winspool.h>

#include "platform/win32/text.h"

namespace foliant::platform::win32 {
namespace {

constexpr DWORD level = 5;
constexpr std::size_t text_size = 512;  // with the NUL

HANDLE as_handle(PrinterHandle printer) noexcept {
    return reinterpret_cast<HANDLE>(printer);
}

/// A text that the system keeps, in a buffer of its own.
std::string copy_of(const char* text) {
    std::array<char, text_size> copy{};
    if (text != nullptr) lstrcpynA(copy.data(), text, static_cast<int>(copy.size()));
    return from_ansi(copy.data());
}

}  // namespace

std::uint32_t WindowsPrinters::platform_identifier() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    return version.dwPlatformId;
}

std::string WindowsPrinters::default_printer() {
    // The device, its driver, its port; a device's name holds no comma.
    const std::string device = profile_entry("windows", "Device");
    return device.substr(0, device.find(','));
}

std::string WindowsPrinters::profile_entry(const std::string& section, const std::string& key) {
    std::array<char, 1024> text{};
    GetProfileStringA(to_ansi(section).c_str(), to_ansi(key).c_str(), "", text.data(),
                      static_cast<DWORD>(text.size()));
    return from_ansi(text.data());
}

void WindowsPrinters::write_profile_entry(const std::string& section, const std::string& key,
                                          const std::string& text) {
    WriteProfileStringA(to_ansi(section).c_str(), to_ansi(key).c_str(), to_ansi(text).c_str());
}

void WindowsPrinters::announce_profile_change(const std::string& section) {
    const std::string name = to_ansi(section);
    const auto everybody = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));
    SendMessageA(everybody, WM_WININICHANGE, 0, reinterpret_cast<LPARAM>(name.c_str()));
}

PrinterHandle WindowsPrinters::open_printer(const std::string& name) {
    PRINTER_DEFAULTSA defaults{};
    defaults.DesiredAccess = PRINTER_ALL_ACCESS;
    HANDLE printer = nullptr;
    if (OpenPrinterA(to_ansi(name).data(), &printer, &defaults) == FALSE) return 0;
    return reinterpret_cast<PrinterHandle>(printer);
}

std::optional<PrinterInfo> WindowsPrinters::printer_info(PrinterHandle printer) {
    DWORD size = 0;
    GetPrinterA(as_handle(printer), level, nullptr, 0, &size);
    // Never smaller than the record, whatever the system asks for.
    std::vector<PRINTER_INFO_5A> records(size / sizeof(PRINTER_INFO_5A) + 1);
    if (GetPrinterA(as_handle(printer), level, reinterpret_cast<BYTE*>(records.data()), size, &size) == FALSE)
        return std::nullopt;
    const PRINTER_INFO_5A& found = records.front();
    return PrinterInfo{copy_of(found.pPrinterName), copy_of(found.pPortName), found.Attributes,
                       found.DeviceNotSelectedTimeout, found.TransmissionRetryTimeout};
}

bool WindowsPrinters::set_printer_info(PrinterHandle printer, const PrinterInfo& info) {
    std::string name = to_ansi(info.name);
    std::string port = to_ansi(info.port);
    PRINTER_INFO_5A record{name.data(), port.data(), info.attributes, info.device_not_selected_timeout,
                           info.transmission_retry_timeout};
    return SetPrinterA(as_handle(printer), level, reinterpret_cast<BYTE*>(&record), 0) != FALSE;
}

void WindowsPrinters::close_printer(PrinterHandle printer) {
    ClosePrinter(as_handle(printer));
}

}  // namespace foliant::platform::win32
