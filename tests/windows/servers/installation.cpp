#include "windows/servers/installation.h"

#include <algorithm>
#include <array>
#include <ole2.h>
#include <utility>

#include "windows/servers/classes.h"
#include "windows/servers/record.h"

namespace foliant::tests::servers {
namespace {

const std::wstring all_classes = L"SOFTWARE\\Classes\\";
constexpr const wchar_t* acrobat = L"SOFTWARE\\Classes\\AcroExch.App";
constexpr const wchar_t* distiller = L"SOFTWARE\\Adobe\\Acrobat Distiller";

void set(const std::wstring& key, const std::wstring& text) {
    RegSetValueW(HKEY_LOCAL_MACHINE, key.c_str(), REG_SZ, text.c_str(), 0);
}

void remove(const std::wstring& key) {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
}

std::wstring braces(const GUID& id) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

/// Where the build has put a file; Wine shows the machine's files on its drive Z.
std::wstring built(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return L"Z:" + std::wstring(path.begin(), path.end());
}

void register_event_names() {
    ITypeLib* library = nullptr;
    const std::wstring path = built(EVENTS_LIBRARY);
    if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, &library))) return;
    library->Release();
    set(all_classes + L"CLSID\\" + braces(class_of("Distiller").id) + L"\\TypeLib", braces(events_library));
}

}  // namespace

Installation::Installation(Kind kind, bool with_event_names)
    : wanted_(CreateMutexW(nullptr, FALSE, server_wanted)) {
    DeleteFileW(record_path().c_str());
    for (const Class& recorded : classes) {
        const std::wstring key = all_classes + L"CLSID\\" + braces(recorded.id);
        set(key, L"Recorded");
        if (kind == Kind::local) {
            set(key + L"\\LocalServer32", built(RECORDING_EXE));
        } else {
            set(key + L"\\InprocServer32", built(RECORDING_DLL));
        }
        if (recorded.prog_id != nullptr)
            set(all_classes + recorded.prog_id + L"\\CLSID", braces(recorded.id));
    }
    set(std::wstring(acrobat) + L"\\AcrobatVersion", L"6.0");
    set(std::wstring(distiller) + L"\\6.0\\PrinterName", L"Adobe PDF");
    if (with_event_names) register_event_names();
}

Installation::~Installation() {
    dismiss();
    UnRegisterTypeLib(events_library, 1, 0, LOCALE_NEUTRAL, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    for (const Class& recorded : classes) {
        remove(all_classes + L"CLSID\\" + braces(recorded.id));
        if (recorded.prog_id != nullptr) remove(all_classes + recorded.prog_id);
    }
    remove(acrobat);
    remove(distiller);
    DeleteFileW(record_path().c_str());
}

void Installation::dismiss() {
    if (wanted_ != nullptr) CloseHandle(std::exchange(wanted_, nullptr));
}

std::string Installation::record() const {
    return read_file(record_path());
}

}  // namespace foliant::tests::servers
