#include "com/module.h"

#include <atomic>
#include <ole2.h>

#include "automation/error.h"

namespace foliant::com::module {

using platform::win32::ComPointer;

namespace {

std::atomic<long> users{0};

void check(HRESULT outcome) {
    if (FAILED(outcome)) {
        throw automation::Error(outcome, "",
                                "The type library of Foliant cannot be read. Install Foliant again.");
    }
}

}  // namespace

Living::Living() noexcept {
    lock();
}
Living::~Living() {
    unlock();
}

void lock() noexcept {
    ++users;
}
void unlock() noexcept {
    --users;
}
bool is_unused() noexcept {
    return users == 0;
}

std::wstring file_name() {
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&users), &self);
    constexpr std::size_t longest_path = 0x8000;
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) throw automation::Error(automation::RuntimeError::file_not_found);
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        if (path.size() >= longest_path) throw automation::Error(automation::RuntimeError::file_not_found);
        path.resize(path.size() * 2);
    }
}

ComPointer<ITypeLib> type_library() {
    ComPointer<ITypeLib> library;
    check(LoadTypeLibEx(file_name().c_str(), REGKIND_NONE, library.put()));
    return library;
}

ComPointer<ITypeInfo> type_information(const GUID& id) {
    ComPointer<ITypeInfo> type;
    check(type_library()->GetTypeInfoOfGuid(id, type.put()));
    return type;
}

}  // namespace foliant::com::module
