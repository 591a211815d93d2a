#include "sender/win32/starter.h"

#include <cstdint>
#include <tlhelp32.h>

namespace foliant::sender::win32 {
namespace {

/// The number of the process that started this one; 0 when the system does not say.
DWORD starter_number() {
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (processes == INVALID_HANDLE_VALUE) return 0;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    DWORD found = 0;
    for (BOOL more = Process32FirstW(processes, &entry); more != 0; more = Process32NextW(processes, &entry))
        if (entry.th32ProcessID == GetCurrentProcessId()) found = entry.th32ParentProcessID;
    CloseHandle(processes);
    return found;
}

std::uint64_t birth_of(HANDLE process) {
    FILETIME born{};
    FILETIME ended{};
    FILETIME in_kernel{};
    FILETIME outside{};
    if (GetProcessTimes(process, &born, &ended, &in_kernel, &outside) == 0) return 0;
    return static_cast<std::uint64_t>(born.dwHighDateTime) << 32U | born.dwLowDateTime;
}

}  // namespace

Starter::Starter() {
    const DWORD number = starter_number();
    if (number == 0) return;
    process_.reset(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number));
    // The number of a process that has ended is given to another one in time.
    ended_before_ = process_ == nullptr ? GetLastError() == ERROR_INVALID_PARAMETER
                                        : birth_of(process_.get()) > birth_of(GetCurrentProcess());
}

bool Starter::has_ended() const {
    return ended_before_ || (process_ != nullptr && WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0);
}

}  // namespace foliant::sender::win32
