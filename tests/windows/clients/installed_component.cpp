#include "windows/clients/installed_component.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <tlhelp32.h>

#include "platform/win32/text.h"
#include "windows/servers/classes.h"

namespace foliant::tests::clients {
namespace {

std::wstring in_system_folder(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> folder{};
    GetSystemDirectoryW(folder.data(), MAX_PATH);
    return std::wstring(folder.data()) + L"\\" + name;
}

std::wstring in_temporary_folder(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> folder{};
    GetTempPathW(MAX_PATH, folder.data());
    return std::wstring(folder.data()) + name;
}

void copy(const std::wstring& from, const std::wstring& to) {
    if (CopyFileW(from.c_str(), to.c_str(), FALSE) == 0)
        throw std::runtime_error("cannot copy to " + platform::win32::to_utf8(to));
}

bool runs(const wchar_t* program) {
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    bool found = false;
    for (BOOL more = Process32FirstW(processes, &entry); more != FALSE && !found;
         more = Process32NextW(processes, &entry))
        found = _wcsicmp(entry.szExeFile, program) == 0;
    CloseHandle(processes);
    return found;
}

bool local_server_runs() {
    const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, servers::server_mutex);
    if (mutex != nullptr) CloseHandle(mutex);
    return mutex != nullptr;
}

template <class Question>
bool stops(Question&& question) {
    constexpr int rounds = 600;
    constexpr DWORD pause_ms = 100;
    for (int i = 0; i < rounds && question(); ++i)
        Sleep(pause_ms);
    return !question();
}

}  // namespace

RegisteredComponent::RegisteredComponent(Sender sender) : folder_(in_temporary_folder(L"foliant library")) {
    CreateDirectoryW(folder_.c_str(), nullptr);
    const std::wstring library = folder_ + L"\\Foliant.dll";
    copy(com::Component::path(), library);
    if (sender == Sender::in_system_folder) sender_ = in_system_folder(L"quorixsend.exe");
    if (sender == Sender::beside_library) sender_ = folder_ + L"\\quorixsend.exe";
    if (!sender_.empty()) copy(QUORIXSEND_EXE, sender_);
    library_.emplace(library);
    if (FAILED(library_->register_server())) throw std::runtime_error("Foliant.dll cannot be registered");
}

RegisteredComponent::~RegisteredComponent() {
    senders_end();
    library_->unregister_server();
    library_.reset();
    DeleteFileW(sender_.c_str());
    DeleteFileW((folder_ + L"\\Foliant.dll").c_str());
    RemoveDirectoryW(folder_.c_str());
}

bool senders_end() {
    return stops([] { return runs(L"quorixsend.exe"); });
}

bool InstalledComponent::hosts_end() {
    hosts_.dismiss();
    return stops(local_server_runs);
}

}  // namespace foliant::tests::clients
