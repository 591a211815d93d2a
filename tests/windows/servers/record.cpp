#include "windows/servers/record.h"

#include <array>

#include "platform/win32/com_pointer.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"

namespace foliant::tests::servers {

using platform::win32::from_bstr;
using platform::win32::to_utf8;

namespace {

std::string type_name(VARTYPE type) {
    switch (type) {
        case VT_EMPTY:
            return "EMPTY";
        case VT_NULL:
            return "NULL";
        case VT_I2:
            return "I2";
        case VT_I4:
            return "I4";
        case VT_R4:
            return "R4";
        case VT_R8:
            return "R8";
        case VT_BSTR:
            return "BSTR";
        case VT_BOOL:
            return "BOOL";
        case VT_DISPATCH:
            return "DISPATCH";
        case VT_ERROR:
            return "ERROR";
        default:
            return "type " + std::to_string(type);
    }
}

/// An object that was handed out comes back as itself, also from a caller in another process.
std::string name_of(IDispatch* object) {
    using platform::win32::ComPointer;
    const auto recorded = ComPointer<IDispatch>::share(object).as<RecordedObject>(recorded_object);
    return recorded ? " " + recorded->recorded_name() : "";
}

std::string content(const VARIANT& variant) {
    switch (variant.vt) {
        case VT_I2:
            return " " + std::to_string(variant.iVal);
        case VT_I4:
            return " " + std::to_string(variant.lVal);
        case VT_R4:
            return " " + std::to_string(variant.fltVal);
        case VT_R8:
            return " " + std::to_string(variant.dblVal);
        case VT_BSTR:
            return " \"" + from_bstr(variant.bstrVal) + "\"";
        case VT_DISPATCH:
            return name_of(variant.pdispVal);
        case VT_BOOL:
            return variant.boolVal == VARIANT_FALSE ? " False" : " True";
        default:
            return "";
    }
}

}  // namespace

std::wstring record_folder() {
    std::array<wchar_t, MAX_PATH> folder{};
    if (GetEnvironmentVariableW(record_variable, folder.data(), MAX_PATH) == 0)
        GetTempPathW(MAX_PATH, folder.data());
    return folder.data();
}

std::wstring record_path(const std::wstring& folder) {
    return folder + L"foliant-record.txt";
}

std::wstring record_path() {
    return record_path(record_folder());
}

void record(const std::wstring& folder, const std::string& line) {
    const HANDLE file =
        CreateFileW(record_path(folder).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::string text = line + "\n";
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

void record(const std::string& line) {
    record(record_folder(), line);
}

void make_file(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, "%made", 5, &written, nullptr);
    CloseHandle(file);
}

std::string default_printer() {
    std::array<char, MAX_PATH> device{};
    GetProfileStringA("windows", "Device", "", device.data(), MAX_PATH);
    const std::string text = device.data();
    return text.substr(0, text.find(','));
}

std::string read_file(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::string text(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
    CloseHandle(file);
    return text;
}

std::string describe(const VARIANT& variant) {
    if (variant.vt == VT_ERROR && variant.scode == DISP_E_PARAMNOTFOUND) return "missing";
    if ((variant.vt & VT_BYREF) == 0) return type_name(variant.vt) + content(variant);
    return type_name(static_cast<VARTYPE>(variant.vt & ~VT_BYREF)) + " by reference";
}

}  // namespace foliant::tests::servers
