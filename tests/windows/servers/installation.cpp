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

std::wstring in_system_folder(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> folder{};
    GetSystemDirectoryW(folder.data(), MAX_PATH);
    return std::wstring(folder.data()) + L"\\" + name;
}

constexpr const wchar_t* wine_overrides = L"Software\\Wine\\DllOverrides";

/// What is there stays as it is under another name: others may share the file. Wine has a Notepad of its own inside,
/// which it takes unless it is told not to.
void replace_notepad(const std::wstring& program) {
    MoveFileW(program.c_str(), (program + L".set aside").c_str());
    CopyFileW(built(RECORDING_EXE).c_str(), program.c_str(), FALSE);
    RegSetKeyValueW(HKEY_CURRENT_USER, wine_overrides, L"notepad.exe", REG_SZ, L"native", sizeof L"native");
}

void put_back_notepad(const std::wstring& program) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, wine_overrides, L"notepad.exe");
    DeleteFileW(program.c_str());
    MoveFileW((program + L".set aside").c_str(), program.c_str());
}

void set_printers() {
    WriteProfileStringA("windows", "Device", "Office printer,winspool,Ne00:");
    WriteProfileStringA("PrinterPorts", "Office printer", "winspool,Ne00:,15,45");
    WriteProfileStringA("PrinterPorts", "Adobe PDF", "winspool,Ne01:,15,45");
}

}  // namespace

Installation::Installation(Kind kind, bool with_event_names)
    : wanted_(CreateMutexW(nullptr, FALSE, server_wanted)), notepad_(in_system_folder(L"notepad.exe")) {
    DeleteFileW(record_path().c_str());
    replace_notepad(notepad_);
    set_printers();
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
    put_back_notepad(notepad_);
    DeleteFileW(record_path().c_str());
}

void Installation::dismiss() {
    if (wanted_ != nullptr) CloseHandle(std::exchange(wanted_, nullptr));
}

std::string Installation::record() const {
    return read_file(record_path());
}

}  // namespace foliant::tests::servers
