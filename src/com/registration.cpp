#include "com/registration.h"

#include <array>
#include <ole2.h>

#include "automation/error.h"
#include "com/identifiers.h"
#include "platform/win32/com_pointer.h"
#include "platform/win32/text.h"

namespace foliant::com {

using automation::Error;
using platform::win32::ComPointer;

namespace {

std::wstring text_of(const GUID& id) {
    constexpr int length = 39;
    wchar_t text[length];
    StringFromGUID2(id, text, length);
    return text;
}

std::wstring class_key() {
    return L"CLSID\\" + text_of(class_id);
}

[[noreturn]] void fail(LSTATUS status, const std::wstring& key) {
    throw Error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)), "",
                "The registry key HKEY_CLASSES_ROOT\\" + platform::win32::to_utf8(key) +
                    " cannot be changed. Register Foliant.dll as an administrator.");
}

void write(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const LSTATUS status = RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(), size);
    if (status != ERROR_SUCCESS) fail(status, key);
}

void remove(const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) fail(status, key);
}

void register_class(const std::wstring& file) {
    const std::wstring server = class_key() + L"\\InprocServer32";
    write(class_key(), nullptr, program_id);
    write(server, nullptr, file);
    write(server, L"ThreadingModel", L"Apartment");
    write(class_key() + L"\\ProgID", nullptr, program_id);
    write(class_key() + L"\\Programmable", nullptr, L"");
    write(class_key() + L"\\TypeLib", nullptr, text_of(library_id));
    write(class_key() + L"\\Version", nullptr,
          std::to_wstring(library_major_version) + L"." + std::to_wstring(library_minor_version));
}

void register_program_id(const std::wstring&) {
    write(program_id, nullptr, program_id);
    write(std::wstring(program_id) + L"\\Clsid", nullptr, text_of(class_id));
}

void register_type_library(const std::wstring& file) {
    ComPointer<ITypeLib> library;
    HRESULT outcome = LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.put());
    if (SUCCEEDED(outcome)) outcome = RegisterTypeLib(library.get(), std::wstring(file).data(), nullptr);
    if (FAILED(outcome)) throw Error(outcome, "", "The type library of Foliant cannot be registered.");
}

void unregister_class() {
    remove(class_key());
}

/// Each word size has a class of its own; the ProgID is one for both.
bool other_word_size_is_registered() {
    const REGSAM other_view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, class_key().c_str(), 0, KEY_READ | other_view, &key) !=
        ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

void unregister_program_id() {
    if (!other_word_size_is_registered()) remove(program_id);
}

void unregister_type_library() {
    BSTR file = nullptr;
    const bool registered = SUCCEEDED(QueryPathOfRegTypeLib(library_id, library_major_version,
                                                            library_minor_version, library_locale, &file));
    SysFreeString(file);
    if (!registered) return;
    const SYSKIND kind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    const HRESULT outcome =
        UnRegisterTypeLib(library_id, library_major_version, library_minor_version, library_locale, kind);
    if (FAILED(outcome)) {
        throw Error(outcome, "", "The type library of Foliant cannot be unregistered.");
    }
}

/// One part of the registration, and how it is taken back.
struct Step {
    void (*add)(const std::wstring& file);
    void (*remove)();
};

/// Taken back in the opposite order: the class before the ProgID, since a Windows of one word size shows the
/// own class for the other's too.
constexpr std::array steps{
    Step{register_program_id, unregister_program_id},
    Step{register_class, unregister_class},
    Step{register_type_library, unregister_type_library},
};

}  // namespace

void register_component(const std::wstring& file) {
    try {
        for (const Step& step : steps)
            step.add(file);
    } catch (...) {
        const Error first = automation::current_error();
        try {
            unregister_component();
        } catch (const Error&) {  // NOLINT(bugprone-empty-catch): the first failure is the one to know of
        }
        throw Error(first);
    }
}

void unregister_component() {
    std::exception_ptr first;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        try {
            step->remove();
        } catch (...) {
            if (!first) first = std::current_exception();
        }
    }
    if (first) std::rethrow_exception(first);
}

}  // namespace foliant::com
