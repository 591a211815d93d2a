// The printers of a Windows 95, as a library under the name of the system's own: records what is asked of it.

#include <algorithm>
#include <array>
#include <cstring>
#include <windows.h>

// clang-format off: it needs what the other brings
#include <winspool.h>
// clang-format on

#include "windows/servers/record.h"

namespace {

using foliant::tests::servers::record;

struct Printer {
    const char* name;
    const char* port;
    DWORD attributes;
    bool can_be_read;
    bool can_be_changed;
};

constexpr std::array printers{
    Printer{"Adobe PDF", "FILE:", 0x241, true, true},
    Printer{"Secret", "LPT1:", 0, false, true},
    Printer{"Locked", "LPT2:", 0, true, false},
};

std::string quoted(const char* text) {
    return text == nullptr ? "none" : '"' + std::string(text) + '"';
}

std::string hexadecimal(DWORD number) {
    char text[9];
    wsprintfA(text, "%X", number);
    return text;
}

/// The handle of a printer is its place in the list, counted from 1.
const Printer& printer_of(HANDLE handle) {
    return printers.at(reinterpret_cast<std::size_t>(handle) - 1);
}

/// Where the record ends, its texts begin.
DWORD size_of(const Printer& printer) {
    return static_cast<DWORD>(sizeof(PRINTER_INFO_5A) + std::strlen(printer.name) + 1 +
                              std::strlen(printer.port) + 1);
}

void write_info(const Printer& printer, BYTE* buffer) {
    char* name = reinterpret_cast<char*>(buffer + sizeof(PRINTER_INFO_5A));
    char* port = std::copy_n(printer.name, std::strlen(printer.name) + 1, name);
    std::copy_n(printer.port, std::strlen(printer.port) + 1, port);
    constexpr DWORD not_selected_ms = 15000;
    constexpr DWORD retry_ms = 45000;
    *reinterpret_cast<PRINTER_INFO_5A*>(buffer) = {name, port, printer.attributes, not_selected_ms, retry_ms};
}

}  // namespace

extern "C" {

__declspec(dllexport) BOOL WINAPI OpenPrinterA(char* name, HANDLE* handle, PRINTER_DEFAULTSA* defaults) {
    record("OpenPrinterA " + quoted(name) + ", data type " + quoted(defaults->pDatatype) +
           (defaults->pDevMode == nullptr ? ", no device mode" : ", a device mode") + ", access " +
           hexadecimal(defaults->DesiredAccess));
    const auto* found = std::find_if(printers.begin(), printers.end(), [&](const Printer& printer) {
        return std::strcmp(printer.name, name) == 0;
    });
    if (found == printers.end()) return FALSE;
    *handle = reinterpret_cast<HANDLE>(found - printers.begin() + 1);
    return TRUE;
}

__declspec(dllexport) BOOL WINAPI
    GetPrinterA(HANDLE handle, DWORD level, BYTE* buffer, DWORD size, DWORD* needed) {
    const Printer& printer = printer_of(handle);
    *needed = size_of(printer);
    const std::string room = buffer == nullptr ? "no buffer"
                             : size == *needed ? "a buffer of what is needed"
                                               : "another buffer";
    record("GetPrinterA \"" + std::string(printer.name) + "\", level " + std::to_string(level) + ", " + room);
    if (buffer == nullptr || size < *needed || !printer.can_be_read) return FALSE;
    write_info(printer, buffer);
    return TRUE;
}

__declspec(dllexport) BOOL WINAPI SetPrinterA(HANDLE handle, DWORD level, BYTE* buffer, DWORD command) {
    const auto& info = *reinterpret_cast<const PRINTER_INFO_5A*>(buffer);
    record("SetPrinterA \"" + std::string(printer_of(handle).name) + "\", level " + std::to_string(level) +
           ": " + quoted(info.pPrinterName) + ", " + quoted(info.pPortName) + ", attributes " +
           hexadecimal(info.Attributes) + ", " + std::to_string(info.DeviceNotSelectedTimeout) + ", " +
           std::to_string(info.TransmissionRetryTimeout) + "; command " + std::to_string(command));
    return printer_of(handle).can_be_changed ? TRUE : FALSE;
}

__declspec(dllexport) BOOL WINAPI ClosePrinter(HANDLE handle) {
    record("ClosePrinter \"" + std::string(printer_of(handle).name) + "\"");
    return TRUE;
}

}  // extern "C"
